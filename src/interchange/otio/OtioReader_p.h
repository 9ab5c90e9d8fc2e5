#pragma once

#include "interchange/otio/OtioNode_p.h"

#include <QJsonArray>
#include <QJsonValue>

class ImportNotes;

/// Reads the objects of a file into a cut, in every schema version we know. What is of the wrong kind
/// or unknown is read as absent and noted.
class OtioReader
{
public:
    static constexpr int mostItems = 500'000;

    /// Both are borrowed; the outline is that of the text that is read.
    OtioReader(const JsonOutline &outline, ImportNotes &notes) : m_outline(outline), m_notes(notes) {}

    /// False when @p root, the first object of the text, holds no cut; error() then tells why.
    bool read(const QJsonObject &root, OtioCut &cut);
    const QString &error() const { return m_error; }

private:
    /// An object of the file, with its number in the outline.
    struct Source {
        QJsonObject object;
        int number = JsonOutline::none;
    };

    struct Range {
        bool isGiven = false;
        OtioTime start;
        OtioTime duration;
        OtioTime::Rate rate;
    };

    bool readTop(const Source &top, OtioCut &cut);
    void readTimeline(const Source &timeline, OtioCut &cut);
    bool readCollection(const Source &source, OtioCut &cut);
    void readStackOf(const Source &item, OtioCut &cut);

    OtioNode readItem(const QJsonValue &value, int number, const QString &place);
    /// What the item says, whose schema is known as @p name and @p newest.
    void readKnownItem(const QJsonObject &object, OtioNode &node, const QString &schema);
    void noteVersion(const QJsonObject &object, int newest, const QString &place);
    /// What every object has. The fields that it has besides are read elsewhere; all others are unknown.
    void readCommon(const QJsonObject &object, OtioNode &node, const QStringList &ownFields);
    /// What stands in time has a range, may be disabled, and carries markers and effects.
    void readInTime(const QJsonObject &object, OtioNode &node, QStringList ownFields);
    void readStackChildren(const QJsonObject &object, OtioNode &stack);
    void readTrackChildren(const QJsonObject &object, OtioNode &track);
    void readTrackKind(const QJsonObject &object, OtioNode &track);
    void readTransition(const QJsonObject &object, OtioNode &transition);
    void readClipMedia(const QJsonObject &object, OtioNode &clip);
    QString mediaText(const QJsonObject &media) const;

    OtioTime readTime(const QJsonObject &owner, const QString &field, const QString &place, OtioTime::Rate &rate);
    Range readRange(const QJsonObject &owner, const QString &field, const QString &place);
    QString readString(const QJsonObject &owner, const QString &field, const QString &place);
    bool readEnabled(const QJsonObject &owner, const QString &place);
    QJsonArray readArray(const QJsonObject &owner, const QString &field, const QString &place);
    QJsonObject readObject(const QJsonObject &owner, const QString &field, const QString &place);

    void noteBadValue(const QString &field, const QString &place);
    /// @p reason says what the time is, @p taken what counts in its place.
    void noteBadTime(const QString &field, const QString &place, const QString &reason, const QString &taken);
    void noteNegativeTime(const QString &field, const QString &place, const QJsonValue &time);

    const JsonOutline &m_outline;
    ImportNotes &m_notes;
    QString m_error;
    int m_items = 0;
};
