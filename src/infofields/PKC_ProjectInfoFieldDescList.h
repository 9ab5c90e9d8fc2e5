#pragma once

#include "infofields/PKC_InfoFieldDescList.h"

#include <QCoreApplication>

/// The captions of the project itself.
class PLOTKA_EXPORT PKC_ProjectInfoFieldDescList : public PKC_InfoFieldDescList
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    explicit PKC_ProjectInfoFieldDescList(const QString &name = QString());
    PKC_ProjectInfoFieldDescList(const QString &name, const QString &creator, const QString &version);
    PKC_ProjectInfoFieldDescList(const PKC_ProjectInfoFieldDescList &) = default;
    PKC_ProjectInfoFieldDescList &operator=(const PKC_ProjectInfoFieldDescList &) = default;
    ~PKC_ProjectInfoFieldDescList() override;

    PIO_Metadata *clone() const override;

private:
    static QString tr(const char *text, const char *comment = nullptr, int n = -1)
    {
        return QCoreApplication::translate("PKC_ProjectInfoFieldDescList", text, comment, n);
    }
    static QString trUtf8(const char *text, const char *comment = nullptr, int n = -1) { return tr(text, comment, n); }
};
