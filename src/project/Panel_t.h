#pragma once

#include "project/Shot_t.h"
#include "scene/timeline/AT_FrameBlock.h"

class MO_Node;
class PKC_ClipInfo;
class PKC_ExposurePoints;
class PKC_InfoFieldList;
class PKC_LayerInfos;
class PKC_PdfOptions;
class PKC_SoundAnnotation;
class PKC_Tracking;

namespace Plotka
{

class PLOTKA_EXPORT PanelPrivate;

/// One panel of a shot. Follows edits and answers neutrally once its panel has gone, as a Shot_t does.
class PLOTKA_EXPORT Panel_t : public SharedPtr<PanelPrivate>
{
public:
    static const Panel_t invalid;

    Panel_t();
    /// One more handle on the same object; null gives the invalid one.
    explicit Panel_t(PanelPrivate *object) : SharedPtr(object) {}
    /// Gives the scene the records of a panel that it lacks. Nothing is owned.
    Panel_t(const TUSeqTimedValue *timedValue, const TUScene *scene, const Shot_t &shot,
        const ObjectNameHelper *nameHelper);
    /// A copy starts without a remembered block.
    Panel_t(const Panel_t &other);
    Panel_t &operator=(const Panel_t &other);
    virtual ~Panel_t();

    /// @name Identity
    /// @{
    const SC_Id &id() const;
    SC_Id sceneId() const;
    TUScene *symbol() const;
    /// The node that shows the shot's panels; null without one.
    MO_Node *node() const;
    const Shot_t &shot() const;

    bool operator==(const Panel_t &other) const { return id() == other.id(); }
    bool operator!=(const Panel_t &other) const { return id() != other.id(); }
    bool operator<(const Panel_t &other) const { return id() < other.id(); }
    /// @}

    /// @name Place
    /// firstFrame() and lastFrame() are project frames, counted on the panel's own block: the start of the shot's time
    /// warp does not enter. The block is in frames of the shot's timed value.
    /// @{
    const AT_FrameBlock &frameBlock() const;
    unsigned int firstFrame() const;
    unsigned int lastFrame() const;
    unsigned int objNumOfFrame() const;
    /// The same in shot frames, 1 at the shot's first frame.
    unsigned int relativeFirstFrame() const;
    unsigned int relativeLastFrame() const;

    bool isFirstOfShot() const;
    bool isLastOfShot() const;
    /// True when the panel does not reach the end of its shot, or the start with @p forward false.
    bool hasMorePKPanelInCurPKScene(bool forward) const;
    /// @}

    /// @name Names
    /// @{
    /// The panel's own name when it is custom, else that of the name helper; a null text without one.
    QString name() const;
    QString shotName() const;
    /// The custom name of the shot, else "0".
    QString sequenceName() const;
    QString actName() const;
    /// @}

    /// @name Records
    /// Those of the scene, which owns them. Null once the scene has gone.
    /// @{
    PKC_ClipInfo *clipInfo() const;
    PKC_InfoFieldList *infoFieldList() const;
    PKC_Tracking *tracking() const;
    PKC_ExposurePoints *exposurePoints() const;
    PKC_LayerInfos *layerInfos() const;
    PKC_SoundAnnotation *soundAnnotation() const;
    PKC_PdfOptions *pdfOptions() const;
    /// @}

    /// @name Frame crossings
    /// A panel frame is a position in the inner range of the panel's time warp.
    /// @{
    double panelFrameToShotFrame(double panelFrame) const;
    double shotFrameToPanelFrame(double shotFrame) const;
    unsigned int panelFrameToProjectFrame(double panelFrame) const;
    double projectFrameToPanelFrame(unsigned int projectFrame) const;
    /// @}

private:
    friend class PanelCacheScope;
    friend class PanelHandleProbe;

    void useFrameBlockCache(bool on) const;
    bool isUsingFrameBlockCache() const { return m_useCachedBlock; }

    mutable AT_FrameBlock m_cachedBlock;
    mutable bool m_useCachedBlock = false;
};

} // namespace Plotka
