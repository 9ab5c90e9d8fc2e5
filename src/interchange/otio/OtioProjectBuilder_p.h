#pragma once

#include "interchange/otio/OtioPlan.h"

#include <QHash>

class ImportNotes;
class PIO_Metadatas;
class SC_Project;
class TUScene;
class TUSeqTimedValue;

/// Builds what a plan says in a new project, through the edits that any application has. What the project
/// refuses is left out and noted.
class OtioProjectBuilder
{
public:
    OtioProjectBuilder(SC_Project &project, ImportNotes &notes);

    void build(const OtioPlan &plan);

private:
    void nameTimeline(const QString &name);
    void addShot(const OtioShotPlan &shot);
    void addPanels(const OtioShotPlan &shot, TUScene &shotScene);
    void addTransition(const OtioTransitionPlan &transition);
    void addVideoTrack(const OtioTrackPlan &track, qsizetype number);
    void addSoundTrack(const OtioTrackPlan &track, qsizetype number);

    /// A new scene in a block with a time warp from 1 to its length; null, and no scene, when that is refused.
    TUScene *placeScene(TUSeqTimedValue &timeline, unsigned int firstFrame, unsigned int frameCount);
    /// @p wanted, with a number where a layer has that name: tracks are told apart by it.
    QString newLayerName(const QString &wanted);
    void noteRefused(const QString &what, const QString &name, unsigned int firstFrame);

    SC_Project &m_project;
    ImportNotes &m_notes;
    TUScene *m_top;
    TUSeqTimedValue *m_timeline;
    /// The names taken, each with the number that its next namesake may get.
    QHash<QString, int> m_layerNames;
};
