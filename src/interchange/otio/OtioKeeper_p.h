#pragma once

#include "interchange/otio/OtioNode_p.h"
#include "interchange/otio/OtioPlan.h"

class ImportNotes;
struct LooseJson;

/// Keeps what an item of a cut carries and a storyboard has no place for, as the item's JSON in a text record, and notes
/// it: markers, effects, metadata, media, in-points, unknown fields, and names of what has none in a storyboard.
///
/// The record is the holder's that was made of the item, or of what the item stands in: the shot, panel or clip, else
/// the project. An item that carries nothing of that gets no record.
class OtioKeeper
{
public:
    using Records = std::vector<OtioRecordPlan>;
    enum Name { NameHasPlace, NameHasNone };

    /// Longer texts, in UTF-8, are not kept, and told of as lost.
    static constexpr qsizetype mostBytes = qsizetype(1024) * 1024;

    /// All are borrowed; the text is the one that the items were read of, and the rate serves messages only.
    OtioKeeper(const LooseJson &source, const UT_FrameRate &rate, ImportNotes &notes) :
        m_source(source), m_rate(rate), m_notes(notes)
    {
    }

    /// @p path is empty for the item that the holder of the records was made of.
    void keep(const OtioNode &node, const QString &path, Name name, Records &records);
    /// The same, where of its metadata only @p foreign has no place.
    void keep(const OtioNode &node, const QJsonObject &foreign, const QString &path, Name name, Records &records);
    /// What the gaps of @p track carry, whether they are shown or not; @p path is that of the track.
    void keepGaps(const OtioNode &track, const QString &path, Records &records);

    /// @name Paths
    /// "track 2", "track 2/item 3"; an item beside tracks, around which there is an implied one, is called as that.
    /// @{
    static QString pathOf(const OtioNode &track);
    static QString pathIn(const OtioNode &track, const QString &trackPath, const OtioNode &item);
    /// @}

private:
    struct Carried {
        const char *code = nullptr;
        QString message;
        bool isChange = false; ///< the storyboard has it, but other than it is kept
    };

    std::vector<Carried> carriedBy(const OtioNode &node, const QJsonObject &foreign, Name name) const;
    static bool isUsualTransition(const OtioNode &node);
    void tell(const OtioNode &node, const Carried &carried);
    void tellTooLarge(const OtioNode &node, const std::vector<Carried> &carried);

    const LooseJson &m_source;
    const UT_FrameRate &m_rate;
    ImportNotes &m_notes;
};
