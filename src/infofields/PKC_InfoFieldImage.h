#pragma once

#include "infofields/PKC_InfoField.h"

/// A caption that is a sketch. It holds the key under which the application keeps the image.
class PLOTKA_EXPORT PKC_InfoFieldImage : public PKC_InfoField
{
public:
    /// Of default size and height. Mind the order: the name comes last.
    PKC_InfoFieldImage(int id, const QString &value, const QString &name);
    PKC_InfoFieldImage(const PKC_InfoFieldImage &) = default;
    PKC_InfoFieldImage &operator=(const PKC_InfoFieldImage &) = default;
    ~PKC_InfoFieldImage() override;

    const QString &value() const override { return m_key; }
    void setValue(const QString &value) override { m_key = value; }
    PKC_InfoField *clone() const override;

    const QString &key() const { return m_key; }
    void setKey(const QString &key) { m_key = key; }

private:
    QString m_key;
};
