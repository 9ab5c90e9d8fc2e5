#pragma once

#include "plotka_scene_export.h"
#include "scene/base/UT_FrameRate.h"

#include <QString>

#include <optional>

/// Timecode: a count of frames from 0 as hours, minutes, seconds and frames of a second, at the rate rounded to whole frames.
///
/// At 30000/1001 and 60000/1001 frames a second that runs behind the clock. Drop-frame timecode keeps up with it: every
/// minute but each tenth begins with frame 2, or 4, so that the numbers before are dropped. No picture is.
///
///     frame       1799         1800         17981        17982
///     non-drop    00:00:59:29  00:01:00:00  00:09:59:11  00:09:59:12
///     drop-frame  00:00:59;29  00:01:00;02  00:09:59;29  00:10:00;00
namespace UT_Timecode
{

enum Counting { NonDrop, DropFrame };

/// True at 30000/1001 and 60000/1001; elsewhere drop-frame timecode means nothing.
PLOTKA_SCENE_EXPORT bool hasDropFrames(const UT_FrameRate &rate);

/// "HH:MM:SS:FF", with ";" before the frames where they are counted with drops. Hours grow as long as needed. At a rate
/// without drop frames it is non-drop whatever @p counting says.
PLOTKA_SCENE_EXPORT QString text(unsigned int frame, const UT_FrameRate &rate, Counting counting = NonDrop);

/// The frame that a timecode names, from 0. Two to four groups of digits are read from the right, "FF" being the last; a
/// ";" before the frames means drop-frame. Nothing for any other text, for a group that is too large, for ";" at a rate
/// without drop frames, for a number that is dropped, and beyond what 32 bits hold.
PLOTKA_SCENE_EXPORT std::optional<unsigned int> parse(const QString &text, const UT_FrameRate &rate);

} // namespace UT_Timecode
