#pragma once

#include "plotka_scene_export.h"

#include <QString>

#include <memory>

class PIO_WritingContext;
class TUSceneChangeManager;
namespace PIO_XML
{
class ComponentReader;
}

/// One record of a project or scene: a type, a name, who wrote it, in which format version, and a
/// payload that the derived class reads and writes as XML.
///
/// A record belongs to the PIO_Metadatas it was added to.
class PLOTKA_SCENE_EXPORT PIO_Metadata
{
public:
    PIO_Metadata(const QString &type, const QString &name, const QString &creator, const QString &version);
    /// Copies the four texts. What is still to be told about the other record is not copied.
    PIO_Metadata(const PIO_Metadata &other);
    PIO_Metadata &operator=(const PIO_Metadata &other);

    // The order of the virtual functions is relied on by those that derive from this class.
    virtual ~PIO_Metadata();
    virtual bool isValid() const = 0;
    /// A new reader bound to this record, or null for a record that reads nothing.
    virtual PIO_XML::ComponentReader *componentReader() = 0;
    /// A new record owned by the caller.
    virtual PIO_Metadata *clone() const = 0;
    /// Appends a text for debugging. The body given here appends the four texts; overriders call it first.
    virtual void dumpToString(QString &text) const = 0;

    /// Selects the class in the factory and names the payload's element.
    const QString &metaType() const { return m_type; }
    /// Name within a container.
    const QString &metaName() const { return m_name; }
    const QString &creator() const { return m_creator; }
    const QString &version() const { return m_version; }

    /// Queues the news that this record changed; metadataChanged() tells it at the next notify().
    /// A null manager is ignored.
    void emitChanged(TUSceneChangeManager *manager, int changeCode);

protected:
    virtual void writeMetadataSubnodes(PIO_WritingContext &context) const = 0;

private:
    friend class PIO_Metadatas;
    friend class PIO_RecordWriter;
    struct Told;

    QString m_type;
    QString m_name;
    QString m_creator;
    QString m_version;
    std::unique_ptr<Told> m_told; // null until a change was queued
    bool m_isHeld = false;        // by a container, for the rest of its life; never copied
};
