#pragma once

#include "plotka_scene_export.h"

#include <QString>

/// Reads what PO_XmlWriter encodes.
class PLOTKA_SCENE_EXPORT PO_Utils
{
public:
    /// Exactly "true" or "false"; for any other text false, and @p value is untouched.
    static bool parseBoolAttr(const QString &text, bool &value);
    /// "#" and eight hexadecimal digits, alpha first; for any other text false, and @p colour is untouched.
    static bool parseColorAttr(const QString &text, unsigned int &colour);
};
