#pragma once

#include "metadata/PKC_ObjInfo.h"
#include "scene/base/SC_Id.h"

#include <QColor>

#include <vector>

/// What a panel or a video clip is called, how it is exported and coloured, and the clips it is
/// linked to. Kept with its scene.
///
/// A record made here has export flag 13 and is automatically named; one read from a file has what
/// the file says, and 0 where it says nothing.
class PLOTKA_EXPORT PKC_ClipInfo : public PKC_ObjInfo
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    explicit PKC_ClipInfo(const QString &name = QString());
    PKC_ClipInfo(const QString &name, const QString &creator, const QString &version);
    PKC_ClipInfo(const PKC_ClipInfo &) = default;
    PKC_ClipInfo &operator=(const PKC_ClipInfo &) = default;
    ~PKC_ClipInfo() override;

    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    /// A word of bits whose meaning is the application's.
    int exportFlag() const { return m_exportFlag; }
    /// Gives the word it replaces.
    int setExportFlag(int flag);

    /// @name Colour
    /// Setting the colour says nothing about whether it is to be used.
    /// @{
    const QColor &color() const { return m_color; }
    void setColor(const QColor &color) { m_color = color; }
    bool colorIsValid() const { return m_colorIsValid; }
    void setColorIsValid(bool valid) { m_colorIsValid = valid; }
    /// @}

    /// @name Links to video and audio clips
    /// In the order in which they were made. Linking what is linked already, or unlinking what is
    /// not, gives false and changes nothing. One id may be in both lists.
    /// @{
    bool linkVideoClip(const SC_Id &id);
    bool linkAudioClip(const SC_Id &id);
    bool unlinkVideoClip(const SC_Id &id);
    bool unlinkAudioClip(const SC_Id &id);
    bool isLinkedToClip(const SC_Id &id) const;
    void clearLinkedClips();
    std::vector<SC_Id> linkedVideoClips() const { return m_linkedVideoClips; }
    std::vector<SC_Id> linkedAudioClips() const { return m_linkedAudioClips; }
    /// @}

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    friend class PanelInfoMetadataReader;

    int m_exportFlag = 13;
    bool m_colorIsValid = false;
    QColor m_color;
    std::vector<SC_Id> m_linkedVideoClips;
    std::vector<SC_Id> m_linkedAudioClips;
};
