#pragma once

#include "plotka_export.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QString>

#include <map>

/// The sound files attached to a panel as annotations, each under an id. Kept with its scene.
class PLOTKA_EXPORT PKC_SoundAnnotation : public PIO_Metadata
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    struct SoundFilePath_t {
        QString path;
        bool deleted = false; ///< still here, but left out when the record is written
    };
    /// In order of the ids.
    using SoundFiles_t = std::map<int, SoundFilePath_t>;

    explicit PKC_SoundAnnotation(const QString &name = QString());
    PKC_SoundAnnotation(const QString &name, const QString &creator, const QString &version);
    PKC_SoundAnnotation(const PKC_SoundAnnotation &) = default;
    PKC_SoundAnnotation &operator=(const PKC_SoundAnnotation &) = default;
    ~PKC_SoundAnnotation() override;

    /// Always.
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    /// Gives the new id: 1 in an empty record, else one more than the largest. When that is the largest there is,
    /// the smallest positive id that is free.
    int add(const QString &path);
    /// Gives @p id. Replaces what stood under it, its mark of deletion included.
    int add(int id, const QString &path);
    /// Marked entries count.
    unsigned int count() const { return static_cast<unsigned int>(m_files.size()); }
    /// Empty for an unknown id; of a marked entry as well.
    QString filePath(int id) const;

    /// @name Edits of one entry
    /// False for an unknown id, and nothing has changed.
    /// @{
    bool markDeleted(int id, bool deleted);
    /// Gives the entry another path and takes its mark away.
    bool move(int id, const QString &path);
    bool remove(int id);
    /// @}

    SoundFiles_t::const_iterator beginSoundFiles() const { return m_files.begin(); }
    SoundFiles_t::const_iterator endSoundFiles() const { return m_files.end(); }
    const SoundFiles_t &soundFiles() const { return m_files; }
    SoundFiles_t &soundFiles() { return m_files; }

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    int freeId() const;

    SoundFiles_t m_files;
};
