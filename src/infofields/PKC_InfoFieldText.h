#pragma once

#include "infofields/PKC_InfoField.h"

/// A caption of text. The text is html, or plain where nobody has made it html yet.
class PLOTKA_EXPORT PKC_InfoFieldText : public PKC_InfoField
{
public:
    /// Of default size and height. Mind the order: the name comes last.
    PKC_InfoFieldText(int id, const QString &value, const QString &name);
    PKC_InfoFieldText(const PKC_InfoFieldText &) = default;
    PKC_InfoFieldText &operator=(const PKC_InfoFieldText &) = default;
    ~PKC_InfoFieldText() override;

    const QString &value() const override { return m_text; }
    void setValue(const QString &value) override { m_text = value; }
    PKC_InfoField *clone() const override;

    const QString &text() const { return m_text; }
    void setText(const QString &text) { m_text = text; }

private:
    QString m_text;
};
