#include "scene/metadata/PIO_Metadata.h"

#include "scene/changes/TUSceneChangeManager.h"

#include <QPointer>

#include <algorithm>
#include <vector>

/// The managers that may hold news of a record.
struct PIO_Metadata::Told {
    std::vector<QPointer<TUSceneChangeManager>> managers;
};

PIO_Metadata::PIO_Metadata(const QString &type, const QString &name, const QString &creator, const QString &version) :
    m_type(type), m_name(name), m_creator(creator), m_version(version)
{
}

PIO_Metadata::PIO_Metadata(const PIO_Metadata &other) :
    m_type(other.m_type), m_name(other.m_name), m_creator(other.m_creator), m_version(other.m_version)
{
}

PIO_Metadata &PIO_Metadata::operator=(const PIO_Metadata &other)
{
    m_type = other.m_type;
    m_name = other.m_name;
    m_creator = other.m_creator;
    m_version = other.m_version;
    return *this;
}

// News of a dead record must never be delivered.
PIO_Metadata::~PIO_Metadata()
{
    if (!m_told)
        return;
    for (const QPointer<TUSceneChangeManager> &manager : m_told->managers) {
        if (manager)
            manager->forgetMetadata(this);
    }
}

void PIO_Metadata::dumpToString(QString &text) const
{
    text += QStringLiteral("type=%1, name=%2, creator=%3, version=%4, ").arg(m_type, m_name, m_creator, m_version);
}

void PIO_Metadata::emitChanged(TUSceneChangeManager *manager, int changeCode)
{
    if (!manager)
        return;
    if (!m_told)
        m_told = std::make_unique<Told>();
    auto &managers = m_told->managers;
    if (std::find(managers.begin(), managers.end(), manager) == managers.end())
        managers.emplace_back(manager);
    manager->emitMetadataChanged(this, changeCode);
}
