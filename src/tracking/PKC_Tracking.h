#pragma once

#include "plotka_export.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QDateTime>
#include <QString>

/// Whether a panel or a video clip counts as changed, since when, and with what note. Kept with its
/// scene.
///
/// The record only keeps: nothing is told when a value is set, and no value changes another.
class PLOTKA_EXPORT PKC_Tracking : public PIO_Metadata
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    /// Not tracked, with a null date and a null note.
    explicit PKC_Tracking(const QString &name = QString());
    PKC_Tracking(const QString &name, const QString &creator, const QString &version);
    PKC_Tracking(const PKC_Tracking &) = default;
    PKC_Tracking &operator=(const PKC_Tracking &) = default;
    ~PKC_Tracking() override;

    /// Always without a mark; with one only when the date is valid and the note is not null. An empty note will do.
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    bool isTracked() const { return m_isTracked; }
    void setIsTracked(bool tracked) { m_isTracked = tracked; }
    /// Kept in files to the second.
    const QDateTime &trackingDate() const { return m_trackingDate; }
    void setTrackingDate(const QDateTime &date) { m_trackingDate = date; }
    const QString &trackingNote() const { return m_trackingNote; }
    void setTrackingNote(const QString &note) { m_trackingNote = note; }

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    friend class TrackingMetadataReader;

    bool m_isTracked = false;
    QDateTime m_trackingDate;
    QString m_trackingNote;
};
