#pragma once

#include "scene/base/SC_Id.h"
#include "scene/base/UT_IdTable.h"
#include "scene/storage/LoadReport_p.h"
#include "scene/storage/NetworkLoader_p.h"
#include "scene/storage/SequenceLoader_p.h"

#include <QBuffer>
#include <QByteArray>
#include <QHash>
#include <QString>
#include <QXmlStreamReader>

#include <deque>
#include <memory>
#include <vector>

class PIO_Metadata;
class PIO_Metadatas;
class SC_Project;
class TUGroup;
class TUScene;
class TUSeqTimedValue;
class TUSoundTimedValue;
class TUTimedValue;

/// Reads a project from the text of its file.
///
/// What is damaged is left out and told, one item at a time. There is no project when the text is no
/// project, is not well-formed to its end, or has two things of one id.
class ProjectReader
{
public:
    /// More than these no storyboard has; a file that tells more is believed to be a trap.
    static constexpr int sceneLimit = 1000000;
    static constexpr int itemLimit = 8000000;
    /// In bytes: a hundred times what a hundred hours of storyboard take. New records count in each scene that has them.
    static constexpr qint64 sizeLimit = qint64(1) << 30;
    /// In bytes: what scenes share says next to nothing. Longer ones would make a large project of a small file.
    static constexpr qint64 newRecordLimit = 4096;

    ProjectReader(QByteArray text, const QString &filePath, SC_FileReport &report);

    /// Null after an error. The caller takes the project over.
    SC_Project *read();

private:
    void readProject();
    bool readHeader();
    void readScene();
    void readSceneParts(TUScene &scene);
    void readSequence(TUScene &scene);
    void readSounds(TUScene &scene);
    void readSound(TUSoundTimedValue &sounds);
    void readLink(TUTimedValue &timedValue);
    void readRoot(TUScene &scene);
    void readNodesOf(TUGroup &root);
    TUGroup *readNode(TUGroup &group);
    void readComposite(TUScene &scene);
    void readNewRecords();
    void shareNewRecords(TUScene &scene);
    void readRecord(PIO_Metadatas *records, const QString &holder);
    std::unique_ptr<PIO_Metadata> readRecord(const QString &holder);

    void forgetText();
    bool begin();
    QXmlStreamReader::TokenType next();
    bool findElement();
    void end();
    void skipUnknown();
    void skipDamaged(const QString &item, const QString &reason);
    void skipReservingIds();
    bool takeId(const SC_Id &id);
    void fail(const QString &message);

    QString m_filePath;
    LoadReport m_report;
    QByteArray m_text;
    QBuffer m_buffer;
    QXmlStreamReader m_xml;
    std::unique_ptr<SC_Project> m_project;
    NetworkLoader m_network;
    std::deque<SequenceLoader> m_sequences; // one for each shot, and not moved to grow
    UT_IdTable<bool> m_ids;                 // given to something
    struct NewRecords {
        std::vector<const PIO_Metadata *> originals; // the project's
        qint64 size = 0;                             // of their text
    };
    QHash<qint64, NewRecords> m_newRecords; // by number
    qint64 m_sharedSize = 0;                // of the text of new records, in each scene that has them
    SC_Id m_sceneId;                        // of the scene that is being read
    int m_items = 0;
    int m_depth = 0; // how many elements stand open, the current one among them
};
