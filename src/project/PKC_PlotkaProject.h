#pragma once

#include "plotka_export.h"
#include "project/Clip.h"
#include "project/ObjIterator.h"
#include "project/ObjTransIterator.h"
#include "project/Space_t.h"
#include "scene/changes/TUChangeSets.h"

#include <QObject>
#include <QPointer>

#include <list>
#include <memory>
#include <vector>

class MO_Node;
class PKC_DeletedPanels;
class PKC_NamingRules;
class PKC_ProjectCompatibility;
class PKC_ProjectLinkInfo;
class PKC_ReferenceToolData;
class SC_Project;
class SC_ProjectCommon;
class SC_SceneCommon;
class TUScene;
class TUSceneChangeManager;
class TUSeqTimedValue;
class TUTimedValue;

/// One storyboard project: every answer about the shots, panels, transitions and gaps of a timeline.
///
/// Frames count from 1 and the last frame of a block belongs to it; frames without a word are project frames.
/// Nothing here fails: a question without an answer gives the invalid handle, 0 or invalidNdx.
/// The project lives on the application's working thread; a const question may remember its answer.
///
/// Sections and their sources:
///   Container      PKC_PlotkaProject.cpp
///   Records        PKC_PlotkaProject_Records.cpp
///   Traversal      PKC_PlotkaProject_Traversal.cpp
///   Frame lookups  PKC_PlotkaProject_FrameLookups.cpp
///   Identity       PKC_PlotkaProject_Identity.cpp
///   Counts         PKC_PlotkaProject_Counts.cpp
///   Adjacency      PKC_PlotkaProject_Adjacency.cpp
///   Conversions    PKC_PlotkaProject_Conversions.cpp
class PLOTKA_EXPORT PKC_PlotkaProject : public QObject
{
    Q_OBJECT
public:
    /// The answer of every index question that finds nothing.
    static constexpr unsigned int invalidNdx = 0xFFFFFFFF;

    /// Where a transition lets two shots cover one frame: the shot before it, or the shot after it.
    enum ResolutionPriority { ResolveBackward = 0, ResolveForward = 1 };

    /// Shares in the ownership of @p project and walks all its panels once. Over null, every question is answered as for
    /// an empty timeline.
    explicit PKC_PlotkaProject(SC_Project *project);
    ~PKC_PlotkaProject() override;

    /// @name Container
    /// Answers are remembered between changes of the timeline and dropped whole. With the caches off each
    /// question walks the timeline anew.
    /// @{
    SC_Project *project() const;
    SC_ProjectCommon *projectCommon() const;
    TUSceneChangeManager *changeManager() const;
    /// Null without a scene 0.
    TUScene *topScene() const;
    /// The timeline: the sequence timed value of the top scene with the most panels, the earlier of equals; without any
    /// panel the first one; else null. Chosen once, and again when it has died.
    TUSeqTimedValue *topMainTv() const;
    QString name() const;

    void invalidate();
    bool cacheEnabled() const;
    /// Drops what is remembered when the switch changes.
    void setCacheEnabled(bool on);

    /// Remembers the panels of now as those of the last save.
    void updateSavedPanelIds();
    /// True for an id that was no panel's at the last save.
    bool isNewPanelIds(SC_Id id) const;

    /// Switches the caches on for a scope and puts the previous value back. Null does nothing.
    class PLOTKA_EXPORT CacheActivator
    {
    public:
        explicit CacheActivator(PKC_PlotkaProject *project);
        ~CacheActivator();

    private:
        Q_DISABLE_COPY_MOVE(CacheActivator)
        QPointer<PKC_PlotkaProject> m_project;
        bool m_previous;
    };

    /// Switches the caches off for a scope and puts the previous value back. Null does nothing.
    class PLOTKA_EXPORT CacheDesactivator
    {
    public:
        explicit CacheDesactivator(PKC_PlotkaProject *project);
        ~CacheDesactivator();

    private:
        Q_DISABLE_COPY_MOVE(CacheDesactivator)
        QPointer<PKC_PlotkaProject> m_project;
        bool m_previous;
    };

    /// Holds the project's mutex for a scope. It serves callers alone: no question here takes or checks it,
    /// and it is not recursive. Null does nothing.
    class PLOTKA_EXPORT LockHelper
    {
    public:
        explicit LockHelper(PKC_PlotkaProject *project);
        ~LockHelper();

        /// Whether a LockHelper lives, read without locking. False for null.
        static bool isLocked(const PKC_PlotkaProject *project);

    private:
        Q_DISABLE_COPY_MOVE(LockHelper)
        QPointer<PKC_PlotkaProject> m_project;
    };
    /// @}

    /// @name Records
    /// Those of the SC_Project, which owns them; null without one, and when a record has been taken away. Making this
    /// project adds the first three when they are missing, asking adds the others.
    /// @{
    PKC_ReferenceToolData *referenceToolData() const;
    PKC_DeletedPanels *deletedPanels() const;
    PKC_ProjectLinkInfo *projectLinkInfo() const;
    PKC_ProjectCompatibility *projectCompatibility() const;
    PKC_NamingRules *namingRules() const;
    /// @}

    /// @name Traversal
    /// Single steps in timeline order; first and last do not read their argument. A step past either end, or from an object
    /// that has gone, leads to the invalid handle or to where frame 0 leads. Steps pass over gaps, except that a gap
    /// at the end of a shot ends next() and one at its start ends prev() of panels.
    /// @{
    Plotka::Shot_t first(const Plotka::Shot_t &) const;
    Plotka::Shot_t last(const Plotka::Shot_t &) const;
    Plotka::Shot_t next(const Plotka::Shot_t &shot) const;
    Plotka::Shot_t prev(const Plotka::Shot_t &shot) const;
    Plotka::Panel_t first(const Plotka::Panel_t &) const;
    Plotka::Panel_t last(const Plotka::Panel_t &) const;
    Plotka::Panel_t next(const Plotka::Panel_t &panel) const;
    Plotka::Panel_t prev(const Plotka::Panel_t &panel) const;
    Plotka::Panel_t firstInShot(const Plotka::Panel_t &panel) const;
    Plotka::Panel_t lastInShot(const Plotka::Panel_t &panel) const;
    Plotka::Trans_t first(const Plotka::Trans_t &) const;
    Plotka::Trans_t last(const Plotka::Trans_t &) const;
    Plotka::Trans_t next(const Plotka::Trans_t &transition) const;
    Plotka::Trans_t prev(const Plotka::Trans_t &transition) const;

    Plotka::objiterator<Plotka::Panel_t> beginPanel() const;
    Plotka::objiterator<Plotka::Panel_t> endPanel() const;
    Plotka::objiterator<Plotka::Panel_t> beginPanel(const Plotka::Shot_t &shot) const;
    /// The first panel after the shot.
    Plotka::objiterator<Plotka::Panel_t> endPanel(const Plotka::Shot_t &shot) const;
    Plotka::reverse_objiterator<Plotka::Panel_t> rbeginPanel() const;
    Plotka::reverse_objiterator<Plotka::Panel_t> rendPanel() const;
    Plotka::reverse_objiterator<Plotka::Panel_t> rbeginPanel(const Plotka::Shot_t &shot) const;
    Plotka::reverse_objiterator<Plotka::Panel_t> rendPanel(const Plotka::Shot_t &shot) const;
    Plotka::objiterator<Plotka::Shot_t> beginShot() const;
    Plotka::objiterator<Plotka::Shot_t> endShot() const;
    Plotka::reverse_objiterator<Plotka::Shot_t> rbeginShot() const;
    Plotka::reverse_objiterator<Plotka::Shot_t> rendShot() const;
    Plotka::objiterator<Plotka::Trans_t> beginTrans() const;
    Plotka::objiterator<Plotka::Trans_t> endTrans() const;
    Plotka::reverse_objiterator<Plotka::Trans_t> rbeginTrans() const;
    Plotka::reverse_objiterator<Plotka::Trans_t> rendTrans() const;
    /// Stands on the first panel even when a transition precedes it.
    Plotka::objTransIterator<Plotka::Panel_t> beginPanelTrans() const;
    Plotka::objTransIterator<Plotka::Panel_t> endPanelTrans() const;
    Plotka::reverse_objTransIterator<Plotka::Panel_t> rbeginPanelTrans() const;
    Plotka::reverse_objTransIterator<Plotka::Panel_t> rendPanelTrans() const;
    Plotka::objTransIterator<Plotka::Shot_t> beginShotTrans() const;
    Plotka::objTransIterator<Plotka::Shot_t> endShotTrans() const;
    /// @}

    /// @name Frame lookups
    /// In a gap, @p nearest false gives the invalid handle; true gives the neighbour on the @p forward side.
    /// @{
    Plotka::Shot_t getShotAt(unsigned int frame, ResolutionPriority priority, bool nearest, bool forward) const;
    Plotka::Panel_t getPanelAt(unsigned int frame, ResolutionPriority priority, bool nearest, bool forward) const;
    /// @p shotFrame counts from 1 at the first frame of @p shot; past its last frame the answer is invalid.
    Plotka::Panel_t getPanelIn(const Plotka::Shot_t &shot, unsigned int shotFrame, bool nearest, bool forward) const;
    /// The counterpart of @p panel in @p shot: the panel of the same id, else of the same name; with @p lockedOnly only
    /// when both names are locked.
    Plotka::Panel_t getPanelIn(const Plotka::Shot_t &shot, const Plotka::Panel_t &panel, bool lockedOnly) const;
    Plotka::Trans_t getTransAt(unsigned int frame) const;
    /// The gap at the frame, between shots or within one. A gap that reaches the end of a shot is found only in a shot that
    /// starts at frame 1.
    Plotka::Space_t getSpaceAt(unsigned int frame) const;
    bool hasSpaceAt(unsigned int frame) const;
    /// On the transition at the frame, else on the panel there; in a gap on none, on the next, on the previous panel.
    Plotka::objTransIterator<Plotka::Panel_t> panelTransAt(unsigned int frame) const;
    Plotka::objTransIterator<Plotka::Panel_t> panelTransAfter(unsigned int frame) const;
    Plotka::objTransIterator<Plotka::Panel_t> panelTransBefore(unsigned int frame) const;
    /// @}

    /// @name Identity
    /// Objects by id, place and name. Places count from 0 in timeline order.
    /// @{
    Plotka::Shot_t getShotByID(const SC_Id &id) const;
    Plotka::Panel_t getPanelByID(const SC_Id &id) const;
    Plotka::Trans_t getTransByID(const SC_Id &id) const;
    Plotka::PanelTrans_t getPanelTransById(const SC_Id &id) const;
    Plotka::objTransIterator<Plotka::Panel_t> panelTransById(const SC_Id &id) const;
    bool isShotValid(const SC_Id &id) const;
    bool isPanelValid(const SC_Id &id) const;
    bool isTransValid(const SC_Id &id) const;

    Plotka::Shot_t getShotByNdx(unsigned int index) const;
    Plotka::Panel_t getPanelByNdx(unsigned int index) const;
    Plotka::Trans_t getTransByNdx(unsigned int index) const;
    unsigned int getShotNdx(const Plotka::Shot_t &shot) const;
    /// Of the first shot with exactly that name.
    unsigned int getShotNdx(const QString &name) const;
    /// Among all panels, or among those of its shot.
    unsigned int getPanelNdx(const Plotka::Panel_t &panel, bool inShot) const;
    /// The first shot of that name, in that sequence unless @p sequence is empty. With @p upperCase the shot's side
    /// is also compared in upper case; the arguments are taken as they are.
    Plotka::Shot_t getShotByName(const QString &name, const QString &sequence, bool upperCase) const;

    /// Ids from @p a to @p b, or strictly between them. @p a does not lie after @p b, or std::length_error is thrown.
    std::list<SC_Id> panelsIdBetween(const Plotka::Panel_t &a, const Plotka::Panel_t &b, bool inclusive) const;
    std::list<SC_Id> panelsIdIn(const Plotka::Shot_t &shot) const;
    /// True when every id is a panel's and all of one shot; true for none.
    bool areAllPanelsOfSameScene(const std::vector<SC_Id> &ids) const;
    /// True when the panel before @p first is of the same shot, or the panel after @p second; false without a
    /// panel before @p first.
    bool neighborIsOfSameScene(SC_Id first, SC_Id second) const;
    /// @}

    /// @name Counts
    /// @{
    unsigned int shotCount() const;
    unsigned int panelCount() const;
    unsigned int transCount() const;
    /// The panels that end within the range that the shot's time warp shows; 0 without one, and when either end of the
    /// range lies before frame 1.
    unsigned int panelCount(const Plotka::Shot_t &shot) const;
    /// The last frame of the last shot.
    unsigned int getNumOfFrames() const;
    /// The end of the longest sound of the top scene; only audible and not muted ones unless @p all.
    unsigned int getNumOfAudioFrames(bool all) const;
    /// @}

    /// @name Adjacency
    /// What lies next to an object. The out pointer may be null.
    /// @{
    /// The gap is copied to @p space, also an invalid one; an invalid object leaves @p space alone.
    bool isFollowedBySpace(const Plotka::Panel_t &panel, Plotka::Space_t *space = nullptr) const;
    bool isFollowedBySpace(const Plotka::Shot_t &shot, Plotka::Space_t *space = nullptr) const;
    bool isPrecededBySpace(const Plotka::Panel_t &panel, Plotka::Space_t *space = nullptr) const;
    bool isPrecededBySpace(const Plotka::Shot_t &shot, Plotka::Space_t *space = nullptr) const;
    /// @p transition becomes the transition, invalid when there is none.
    bool isFollowedByTrans(const Plotka::Panel_t &panel, Plotka::Trans_t *transition = nullptr) const;
    bool isFollowedByTrans(const Plotka::Shot_t &shot, Plotka::Trans_t *transition = nullptr) const;
    bool isPrecededByTrans(const Plotka::Panel_t &panel, Plotka::Trans_t *transition = nullptr) const;
    bool isPrecededByTrans(const Plotka::Shot_t &shot, Plotka::Trans_t *transition = nullptr) const;
    /// @}

    /// @name Conversions
    /// From objects of the scenes to those of the timeline. Null gives the invalid handle.
    /// @{
    Plotka::Panel_t sceneCommonToPanel(const SC_SceneCommon *scene) const;
    Plotka::Shot_t sceneCommonToShot(const SC_SceneCommon *scene) const;
    Plotka::Panel_t nodeToPanel(const MO_Node *node) const;
    Plotka::Panel_t tvToPanel(const TUTimedValue *timedValue) const;
    Plotka::Shot_t tvToShot(const TUTimedValue *timedValue) const;
    /// @}

protected:
    /// Fills the caches by walking all panels and transitions.
    void buildAll();

    /// The first transition at the block or beyond it.
    Plotka::Trans_t following_transition(
        bool backward, const AT_FrameBlock &block, const TUSeqTimedValue *timeline) const;

protected Q_SLOTS:
    void onSceneChanged();
    void onTimedValuesChanged(const TUTvSet &changed);

private:
    struct Private;
    const std::unique_ptr<Private> d;
};
