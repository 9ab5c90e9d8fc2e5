#pragma once

#include "infofields/PKC_InfoFieldDesc.h"

#include <QString>

/// A caption that new panels get besides those of all panels: what it is, what it is called, and before which of the
/// captions of all panels it stands.
class PLOTKA_EXPORT PKC_ExtraInfoFieldDesc
{
public:
    /// A text without a name and without a place.
    PKC_ExtraInfoFieldDesc();
    PKC_ExtraInfoFieldDesc(PKC_InfoFieldDesc::Type type, const QString &name, int position);
    PKC_ExtraInfoFieldDesc(const PKC_ExtraInfoFieldDesc &);
    PKC_ExtraInfoFieldDesc(PKC_ExtraInfoFieldDesc &&) noexcept;
    PKC_ExtraInfoFieldDesc &operator=(const PKC_ExtraInfoFieldDesc &);
    PKC_ExtraInfoFieldDesc &operator=(PKC_ExtraInfoFieldDesc &&) noexcept;
    ~PKC_ExtraInfoFieldDesc();

    PKC_InfoFieldDesc::Type type() const { return m_type; }
    void setType(PKC_InfoFieldDesc::Type type) { m_type = type; }
    const QString &name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    /// The id of the field that follows; PKC_InfoFieldDesc::endId when none does.
    int position() const { return m_position; }
    /// Sets the position. These fields have no id; callers know the function by this name.
    void setId(int position) { m_position = position; }

    bool isText() const { return PKC_InfoFieldDesc::isText(m_type); }
    bool isImage() const { return PKC_InfoFieldDesc::isImage(m_type); }
    bool isComment() const { return PKC_InfoFieldDesc::isComment(m_type); }

private:
    PKC_InfoFieldDesc::Type m_type = PKC_InfoFieldDesc::TEXT;
    QString m_name;
    int m_position = -1;
};
