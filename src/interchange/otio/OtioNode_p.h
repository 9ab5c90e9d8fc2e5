#pragma once

#include "interchange/JsonOutline_p.h"
#include "interchange/otio/OtioTime_p.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

/// Texts for people, in the one context of this importer.
struct OtioText {
    Q_DECLARE_TR_FUNCTIONS(OtioImport)
public:
    /// @p text, cut so that a message stays readable whatever a file calls its things.
    static QString brief(const QString &text, qsizetype length = 80);
    /// @p text without what a project file cannot hold: control characters but for white space, and lone
    /// halves of surrogate pairs.
    static QString storable(const QString &text);
};

/// One item of a cut, whichever schema and version it was written in.
///
/// The children of a stack are tracks, always: another item there has been given a track of its own.
struct OtioNode {
    enum Kind { Stack, Track, Clip, Gap, Transition };
    enum TrackKind { Video, Sound, OtherTrack };

    bool isComposition() const { return kind == Stack || kind == Track; }

    Kind kind = Gap;
    TrackKind trackKind = Video;
    bool isImplied = false; ///< a track the file does not have, around an item beside its tracks
    bool isEnabled = true;
    bool hasSourceRange = false;
    int number = 1;                                       ///< its place among the children of its parent, from 1
    int object = JsonOutline::none;                       ///< what it was read of
    JsonOutline::Member childMember = JsonOutline::Other; ///< that holds its children; Other when it cannot have any
    QString place;                                        ///< where it stands in the file, for people
    QString name;
    QString type; ///< of a transition or of an unusual track

    /// Of the source range; else 0.
    OtioTime sourceStart;
    /// Of the source range, else of the active media, else of what it holds.
    OtioTime duration;
    /// In which the file gives the duration; not valid where it follows from what it holds.
    OtioTime::Rate rate;
    OtioTime inOffset;
    OtioTime outOffset;

    QJsonObject metadata;
    QStringList media;       ///< what its media references are
    QStringList effects;     ///< what its effects are
    QStringList otherFields; ///< names of fields that no schema we know has
    qsizetype markerCount = 0;

    std::vector<OtioNode> children;
};

/// A cut as it was read.
struct OtioCut {
    QString name;
    OtioTime start;
    OtioTime::Rate startRate;
    OtioNode collection; ///< name, metadata and other fields of what the cut was found in; nothing else
    OtioNode timeline;   ///< the same of the timeline object
    OtioNode stack;
};

/// The track that shows what @p stack shows: its first of kind video, one of the file's own before
/// one made for an item beside the tracks. Null if there is none.
const OtioNode *findFirstVideoTrack(const OtioNode &stack);
