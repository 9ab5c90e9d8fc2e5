#pragma once

#include "plotka_interchange_export.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

inline bool isJsonSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// Where in a text the objects of a tree stand: the root, and below each object of the tree those that its members
/// "tracks" and "children" hold, alone or in an array.
///
/// Objects are numbered from 0, the root, in the order in which they begin. What is remembered are places, 16 bytes an
/// object, so that what an object says can be taken from its text, to the letter, without keeping any text twice.
class PLOTKA_INTERCHANGE_EXPORT JsonOutline
{
public:
    static constexpr int none = -1;

    enum Member : quint8 { Other, Tracks, Children };

    /// @name Recording
    /// Told of a sound text from left to right; offsets count bytes from its start and fit in 32 bits.
    /// @{
    /// A key, as it stands between its quotes.
    void passKey(QByteArrayView key);
    /// A '{' or '['.
    void open(char opening, qsizetype at);
    /// The '}' or ']' of what was opened last, @p end one behind it.
    void close(qsizetype end);
    /// @}

    /// The objects that @p member of @p object holds, in order. Of a member that stands twice the last counts, as it does
    /// for QJsonObject.
    std::vector<int> objectsIn(int object, Member member) const;

    /// What stands at @p object in @p text, the one that was recorded, without its members @p without and without white
    /// space between tokens; numbers, escapes, order and doubled keys as they are. Characters that XML forbids are
    /// written as escapes. Null without such an object, and for what is longer than @p mostBytes.
    QString textOf(const QByteArray &text, int object, Member without, qsizetype mostBytes) const;

private:
    struct Object {
        quint32 from = 0;
        quint32 end = 0;
        int next = none;       ///< the first that begins behind it
        Member member = Other; ///< that holds it; Other for the root, and where the same member came again
    };

    /// An array or object that is open.
    struct Frame {
        int object = none; ///< of the tree, else none
        bool isArray = false;
        Member member = Other;              ///< the one an array is, or the one that an object of the tree is in
        int begins[3] = {none, none, none}; ///< by member: the first object that it may hold
    };

    class Cutter;

    Member memberToOpen(char opening) const;

    std::vector<Object> m_objects;
    std::vector<Frame> m_open;
};
