#pragma once

#include "pdf/properties/PKC_Property.h"

#include <QList>

/// A list of captions in one text, separated by ";".
class PLOTKA_EXPORT PKC_PropertyFromCaptionList : public PKC_Property
{
public:
    using PKC_Property::PKC_Property;
    ~PKC_PropertyFromCaptionList() override;

    bool setValue(const PKC_Property &other) override;
    bool setValue(const QVariant &value) override;
    using PKC_Property::load;
    bool load(QDataStream &stream) override;
    PKC_Property *clone() const override;
    int propertyType() const override; ///< 5, which the factory does not make

    /// Without the empty ones. Valid until the value changes.
    const QList<QString> &captionList() const;

protected:
    PKC_PropertyFromCaptionList(const PKC_PropertyFromCaptionList &) = default;

private:
    mutable bool m_isDirty = true;
    mutable QList<QString> m_captions; // as of when it was last asked for
};
