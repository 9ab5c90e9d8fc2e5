#include "listing/ProjectCheck.h"

#include "infofields/PKC_InfoField.h"
#include "infofields/PKC_InfoFieldList.h"
#include "infofields/PKC_PanelInfoFieldDescList.h"
#include "infofields/PKC_ProjectInfoFieldDescList.h"
#include "layers/PKC_LayerInfos.h"
#include "listing/CompatibilityCheck_p.h"
#include "listing/ListingText_p.h"
#include "listing/RecordHolders.h"
#include "listing/SceneCheck_p.h"
#include "listing/TimelineListing.h"
#include "metadata/PKC_ClipInfo.h"
#include "naming/PKC_NamingRules.h"
#include "project/ObjectIds.h"
#include "project/PKC_PlotkaProject.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/metadata/PIO_MetadataUnknown.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TUSoundTimedValue.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <set>
#include <utility>

namespace
{

/// Collects what is found, and knows what the checks compare with.
class Checker
{
public:
    Checker(PKC_PlotkaProject &project, const SC_FileReport &report) : m_project(project), m_report(report) {}

    std::vector<Finding> run();

private:
    void add(const char *code, const QString &item, const QString &message)
    {
        m_findings.push_back({QLatin1String(code), item, 0, message});
    }

    void checkFile();
    void checkRecord(const RecordHolder &holder, const PIO_Metadata *record);
    void checkUnknown(const RecordHolder &holder, const PIO_MetadataUnknown &record);
    void checkLinks(const RecordHolder &holder, const PKC_ClipInfo &info);
    void checkDescriptors(const RecordHolder &holder, const PKC_InfoFieldDescList &descriptors);
    void checkFields(const RecordHolder &holder, const PKC_InfoFieldList &fields);
    void checkLayers(const RecordHolder &holder, const PKC_LayerInfos &layers);
    void checkNaming(const RecordHolder &holder, const PKC_NamingRules &rules);

    void findClips();
    void findDescriptors();

    PKC_PlotkaProject &m_project;
    const SC_FileReport &m_report;
    std::set<SC_Id> m_clips;
    std::set<int> m_panelFieldIds;
    std::set<int> m_projectFieldIds;
    std::optional<std::set<QString>> m_nodeNames; // of the scene whose records are looked at, once asked for
    std::vector<Finding> m_findings;
};

std::vector<Finding> Checker::run()
{
    checkFile();
    const std::vector<Finding> ofScenes = checkScenes(m_project);
    m_findings.insert(m_findings.end(), ofScenes.begin(), ofScenes.end());
    findClips();
    findDescriptors();
    for (const RecordHolder &holder : recordHolders(*m_project.project())) {
        m_nodeNames.reset();
        for (const PIO_Metadata *record : holder.records->view())
            checkRecord(holder, record);
    }
    return std::move(m_findings);
}

void Checker::checkFile()
{
    for (const auto *entries : {&m_report.entries(), &m_report.remarks()}) {
        for (const SC_FileReport::Entry &entry : *entries)
            m_findings.push_back({QStringLiteral("damaged"), entry.item, entry.line, entry.message});
    }
}

/// A clip is a block of another sequence timed value of the top scene than the timeline, or a sound of the top scene.
void Checker::findClips()
{
    const TUScene *const top = m_project.topScene();
    if (!top)
        return;
    for (const TUTimedValue *timedValue : top->timedValues()) {
        if (const auto *sound = dynamic_cast<const TUSoundTimedValue *>(timedValue)) {
            const std::vector<SC_Id> ids = sound->sequenceIds();
            m_clips.insert(ids.begin(), ids.end());
        } else if (const auto *track = dynamic_cast<const TUSeqTimedValue *>(timedValue);
                   track && track != m_project.topMainTv()) {
            for (auto block = track->beginBlock(); block != track->endBlock(); ++block)
                m_clips.insert(Plotka::objectId(*block));
            m_clips.erase(Plotka::invalidId); // of blocks that hold nothing
        }
    }
}

void Checker::findDescriptors()
{
    PIO_Metadatas *const records = m_project.project()->metadatas();
    if (const auto *list = PIO_MetadataAccess<PKC_PanelInfoFieldDescList>(records, QString()).get())
        list->getIds(m_panelFieldIds);
    if (const auto *list = PIO_MetadataAccess<PKC_ProjectInfoFieldDescList>(records, QString()).get())
        list->getIds(m_projectFieldIds);
}

void Checker::checkRecord(const RecordHolder &holder, const PIO_Metadata *record)
{
    if (const auto *unknown = dynamic_cast<const PIO_MetadataUnknown *>(record))
        checkUnknown(holder, *unknown);
    else if (const auto *info = dynamic_cast<const PKC_ClipInfo *>(record))
        checkLinks(holder, *info);
    else if (const auto *descriptors = dynamic_cast<const PKC_InfoFieldDescList *>(record))
        checkDescriptors(holder, *descriptors);
    else if (const auto *fields = dynamic_cast<const PKC_InfoFieldList *>(record))
        checkFields(holder, *fields);
    else if (const auto *layers = dynamic_cast<const PKC_LayerInfos *>(record))
        checkLayers(holder, *layers);
    else if (const auto *rules = dynamic_cast<const PKC_NamingRules *>(record))
        checkNaming(holder, *rules);
}

void Checker::checkUnknown(const RecordHolder &holder, const PIO_MetadataUnknown &record)
{
    add("unknown-record", holder.title,
        ListingText::tr("a record of the unknown type \"%1\", written by \"%2\", version \"%3\"")
            .arg(record.metaType(), record.creator(), record.version()));
}

void Checker::checkLinks(const RecordHolder &holder, const PKC_ClipInfo &info)
{
    std::vector<SC_Id> links = info.linkedVideoClips();
    const std::vector<SC_Id> toSound = info.linkedAudioClips();
    links.insert(links.end(), toSound.begin(), toSound.end());
    for (const SC_Id &link : links) {
        if (m_clips.count(link) == 0)
            add("dangling-link", holder.title,
                ListingText::tr("linked to the clip %1, which is not there").arg(link.AsString()));
    }
}

void Checker::checkDescriptors(const RecordHolder &holder, const PKC_InfoFieldDescList &descriptors)
{
    std::set<int> seen;
    for (const PKC_InfoFieldDesc &field : descriptors) {
        const QString id = QString::number(field.id());
        if (field.id() == std::numeric_limits<int>::max() || field.id() == std::numeric_limits<int>::min())
            add("reserved-field-id", holder.title,
                ListingText::tr("the field \"%1\" has the reserved id %2").arg(field.name(), id));
        else if (!seen.insert(field.id()).second)
            add("doubled-field-id", holder.title,
                ListingText::tr("the field \"%1\" has the id %2 of another").arg(field.name(), id));
    }
}

void Checker::checkFields(const RecordHolder &holder, const PKC_InfoFieldList &fields)
{
    const std::set<int> &known = holder.scene ? m_panelFieldIds : m_projectFieldIds;
    for (const UT_SharedPtr<PKC_InfoField> &field : fields) {
        if (field && field->isGlobal() && known.count(field->id()) == 0)
            add("field-without-descriptor", holder.title,
                ListingText::tr("the value of field %1, which no descriptor describes").arg(field->id()));
    }
}

/// The names of all nodes in the group and in the groups within it.
std::set<QString> nodeNames(const TUGroup *root)
{
    std::set<QString> names;
    std::vector<const TUGroup *> groups;
    if (root)
        groups.push_back(root);
    while (!groups.empty()) {
        const TUGroup *const group = groups.back();
        groups.pop_back();
        for (auto node = group->subNodesBegin(); node != group->subNodesEnd(); ++node) {
            names.insert((*node)->instanceName());
            if (const auto *inner = dynamic_cast<const TUGroup *>(node->get()))
                groups.push_back(inner);
        }
    }
    return names;
}

void Checker::checkLayers(const RecordHolder &holder, const PKC_LayerInfos &layers)
{
    if (!m_nodeNames)
        m_nodeNames = nodeNames(holder.scene ? holder.scene->getRootGroup() : nullptr);
    for (const UT_SharedPtr<PKC_LayerInfos::LayerInfo_t> &layer : layers) {
        if (layer && m_nodeNames->count(layer->name) == 0)
            add("layer-without-node", holder.title,
                ListingText::tr("flags for the layer \"%1\", which is not there").arg(layer->name));
    }
}

void Checker::checkNaming(const RecordHolder &holder, const PKC_NamingRules &rules)
{
    // The record answers from the preferences unless it overloads them; what it holds itself is asked for here.
    PKC_NamingRules own(rules);
    own.setOverloadingPref(true);
    const std::pair<const char *, const PKC_NamingRules::ObjRules &> kinds[] = {
        {"sequences", own.sequenceRules()}, {"shots", own.shotRules()}, {"panels", own.panelRules()}};
    for (const auto &kind : kinds) {
        if (kind.second.autoIncrementValue() == 0)
            add("zero-increment", holder.title,
                ListingText::tr("the names of %1 are incremented by 0").arg(QLatin1String(kind.first)));
    }
}

/// Without the gap after the end.
std::vector<TimelineItem> gapsOf(TimelineListing listing)
{
    std::vector<TimelineItem> &items = listing.items;
    const auto isNoGap = [](const TimelineItem &item) { return item.kind != TimelineItem::Gap || item.isEndless(); };
    items.erase(std::remove_if(items.begin(), items.end(), isNoGap), items.end());
    return std::move(items);
}

} // namespace

ProjectCheck checkProject(PKC_PlotkaProject &project, const SC_FileReport &report)
{
    ProjectCheck check;
    check.findings = Checker(project, report).run();
    check.gaps = gapsOf(listTimeline(project));
    check.compatibility = checkCompatibility(project, check.gaps);
    return check;
}
