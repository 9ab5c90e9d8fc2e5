#pragma once

#include "infofields/PKC_InfoFieldDescList.h"

#include <QCoreApplication>

/// The captions that every panel of the project has.
class PLOTKA_EXPORT PKC_PanelInfoFieldDescList : public PKC_InfoFieldDescList
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    explicit PKC_PanelInfoFieldDescList(const QString &name = QString());
    PKC_PanelInfoFieldDescList(const QString &name, const QString &creator, const QString &version);
    PKC_PanelInfoFieldDescList(const PKC_PanelInfoFieldDescList &) = default;
    PKC_PanelInfoFieldDescList &operator=(const PKC_PanelInfoFieldDescList &) = default;
    ~PKC_PanelInfoFieldDescList() override;

    PIO_Metadata *clone() const override;

private:
    static QString tr(const char *text, const char *comment = nullptr, int n = -1)
    {
        return QCoreApplication::translate("PKC_PanelInfoFieldDescList", text, comment, n);
    }
    static QString trUtf8(const char *text, const char *comment = nullptr, int n = -1) { return tr(text, comment, n); }
};
