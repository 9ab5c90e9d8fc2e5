#pragma once

class AT_FrameBlock;
class SC_Id;

namespace Plotka
{

/// @name Crossings between a block's frames and the inner range of its time warp
/// Positions outside are held at the ends. They differ on purpose where the block has no time warp: toward the
/// parent the answer is the block's first frame, toward the inner range it is 1. An invalid block gives 1.
/// @{
double towardParent(const AT_FrameBlock &block, double position);
double towardInner(const AT_FrameBlock &block, double frame);
/// @}

/// A shot frame in frames of the timed value that holds the shot's panels, which the time warp of the shot's
/// block offsets. Unchanged without a time warp.
unsigned int toTimedValueFrame(const AT_FrameBlock &shotBlock, unsigned int shotFrame);

/// The id of the scene that a block places, the key for SC_SceneManager::find. A block with a sequence that
/// places none is reported on standard output; it and any other block without a scene give the null id.
const SC_Id &sceneIdOf(const AT_FrameBlock &block);

} // namespace Plotka
