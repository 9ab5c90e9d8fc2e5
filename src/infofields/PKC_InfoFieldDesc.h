#pragma once

#include "plotka_export.h"

#include <QString>

#include <limits>

/// What a caption is: its type, its id, its name, and how high its box is.
///
/// Descriptors and the values on panels belong together by id. Ids of descriptors count from 0; a negative id is that
/// of a caption that one panel alone has.
class PLOTKA_EXPORT PKC_InfoFieldDesc
{
public:
    /// A word of bits. TEXT and IMAGE may be joined by the comment bit (17 and 18).
    enum Type : int { TEXT = 1, IMAGE = 2 };
    /// Marks the field that holds the comments of a pitch.
    static constexpr int commentBit = 16;

    /// CUSTOM means that the height counts.
    enum Size : int { MINIMUM = 0, MAXIMUM = 1, DEFAULT = 2, CUSTOM = 3 };

    static constexpr int DEFAULT_HEIGHT = 16;
    /// "Comments", the name of the field that holds the comments of a pitch when none is marked.
    static const QString commentsField;

    /// @name Reserved ids
    /// They mean a place wherever lists of fields take an id, and no field is given them but by a file or a
    /// descriptor that has them already.
    /// @{
    static constexpr int endId = std::numeric_limits<int>::max();   ///< the end of the list; also: no field
    static constexpr int firstId = std::numeric_limits<int>::min(); ///< the first entry of the list
    /// @}

    /// A text without a name, of id 0 and default size.
    PKC_InfoFieldDesc() = default;
    PKC_InfoFieldDesc(Type type, int id, const QString &name, Size size, int height);
    PKC_InfoFieldDesc(const PKC_InfoFieldDesc &) = default;
    PKC_InfoFieldDesc &operator=(const PKC_InfoFieldDesc &) = default;
    virtual ~PKC_InfoFieldDesc();

    Type type() const { return m_type; }
    void setType(Type type) { m_type = type; }
    int id() const { return m_id; }
    void setId(int id) { m_id = id; }
    const QString &name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    Size size() const { return m_size; }
    void setSize(Size size) { m_size = size; }
    int height() const { return m_height; }
    void setHeight(int height) { m_height = height; }

    bool isText() const { return isText(m_type); }
    bool isImage() const { return isImage(m_type); }
    bool isComment() const { return isComment(m_type); }
    static bool isText(Type type) { return type & TEXT; }
    static bool isImage(Type type) { return type & IMAGE; }
    static bool isComment(Type type) { return type & commentBit; }

private:
    Type m_type = TEXT;
    int m_id = 0;
    QString m_name;
    Size m_size = DEFAULT;
    int m_height = DEFAULT_HEIGHT;
};
