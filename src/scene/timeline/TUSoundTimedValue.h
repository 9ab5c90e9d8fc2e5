#pragma once

#include "scene/base/SC_Id.h"
#include "scene/timeline/TUTimedValue.h"

#include <vector>

/// Sounds of a scene, each over its own frames; they may overlap.
class PLOTKA_SCENE_EXPORT TUSoundTimedValue : public TUTimedValue
{
public:
    struct Sound {
        SC_Id id;
        unsigned int fromFrame;
        unsigned int toFrame; ///< belongs to the sound
        QString name;
    };

    using TUTimedValue::TUTimedValue;
    ~TUSoundTimedValue() override;

    int timedValueKind() const override { return SoundKind; }

    /// The length of audio counts this value only when it is audible and not muted.
    bool audible = true;
    bool muted = false;

    /// True: never counted in the length of audio.
    bool isExcluded() const { return m_excluded; }
    void setExcluded(bool excluded) { m_excluded = excluded; }

    /// The last frame of any sound; 0 when there is none.
    long getEndFrame() const;
    /// Ids of the sounds in the order in which they were added.
    std::vector<SC_Id> sequenceIds() const;
    const std::vector<Sound> &sounds() const { return m_sounds; }

    /// @name Edits
    /// @{
    /// The id of the new sound, null when the range is refused: it begins at frame 0, ends before it
    /// begins or after TUSeqTimedValue::maxFrame.
    SC_Id addSound(unsigned int fromFrame, unsigned int toFrame, const QString &name = QString());
    /// The same with an id that a file brought; false also for the null id and one that is taken.
    bool addSound(const Sound &sound);
    bool removeSound(const SC_Id &id);
    /// @}

private:
    std::vector<Sound> m_sounds;
    bool m_excluded = false;
};
