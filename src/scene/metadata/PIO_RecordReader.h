#pragma once

#include "plotka_scene_export.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QString>
#include <QtGlobal>

#include <cstddef>
#include <memory>
#include <vector>

class QXmlStreamReader;

/// What came of reading one record: the record, a problem, or both. Without a message there is no problem.
struct PIO_RecordResult {
    /// What the record's reader remarked, and where.
    struct Remark {
        qint64 line;
        qint64 column;
        QString text;
        qint64 count = 1; ///< how many it stands for
    };

    std::unique_ptr<PIO_Metadata> record;
    qint64 line = 0;
    qint64 column = 0;
    QString message;
    std::vector<Remark> remarks;
};

/// Reads records written by PIO_RecordWriter.
///
/// The registered factory makes the record before its payload is read. A record of a type that it
/// does not know comes as a PIO_MetadataUnknown. Prefixes of names are cut off before a reader sees them.
class PLOTKA_SCENE_EXPORT PIO_RecordReader
{
public:
    /// Elements may stand in one another this deep, counted from the element "metadata".
    static constexpr int depthLimit = 20000;
    /// Of one record so many remarks are kept; one more says how many there were beyond.
    static constexpr std::size_t remarkLimit = 100;

    /// Reads the record at whose element "metadata" @p xml stands, and leaves @p xml at the end of that element.
    /// @p xml must leave name spaces alone. An error of @p xml itself is left for the caller to find there.
    static PIO_RecordResult read(QXmlStreamReader &xml);
};
