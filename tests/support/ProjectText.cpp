#include "support/ProjectText.h"

#include "scene/metadata/PIO_Metadatas.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/MO_Port.h"
#include "scene/network/MO_UnconnectedCompositeModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TUSoundTimedValue.h"
#include "support/Records.h"

#include <QFileInfo>

#include <sstream>

namespace
{

std::string quoted(const QString &text)
{
    return '"' + text.toStdString() + '"';
}

std::string idOf(const SC_Id &id)
{
    return std::to_string(id.value());
}

std::string nameOf(const MO_Node *node, const SC_SceneCommon *here)
{
    std::string name = quoted(node->instanceName());
    if (node->sceneCommon() && node->sceneCommon() != here)
        name += " of scene " + idOf(node->sceneCommon()->scene()->sceneId());
    return name;
}

class Printer
{
public:
    std::string text() const { return m_out.str(); }

    void print(const SC_Project &project)
    {
        const SC_ProjectCommon &common = *project.projectCommon();
        m_out << "project " << quoted(common.dbSceneData()->sceneName()) << ", rate "
              << common.frameRate().asString().toStdString() << ", start " << common.startTimecode() << ", next id "
              << common.nextId() << '\n';
        print(*project.metadatas(), "  ");
        for (unsigned int i = 0; i < project.sceneCount(); ++i)
            print(dynamic_cast<const TUScene &>(*project.sceneAt(i)));
    }

private:
    void print(const PIO_Metadatas &records, const std::string &indent)
    {
        for (const PIO_Metadata *record : records) {
            std::istringstream lines(markupOf(*record));
            for (std::string line; std::getline(lines, line);)
                m_out << indent << line << (record->isValid() ? "" : " (not valid)") << '\n';
        }
    }

    void print(const TUScene &scene)
    {
        m_out << "scene " << idOf(scene.sceneId()) << ", object " << idOf(scene.objectId()) << '\n';
        print(*scene.metadatas(), "  ");
        for (const TUTimedValue *timedValue : scene.timedValues()) {
            if (const auto *sequence = dynamic_cast<const TUSeqTimedValue *>(timedValue))
                print(*sequence);
            else
                print(dynamic_cast<const TUSoundTimedValue &>(*timedValue));
        }
        print(*scene.getRootGroup(), "  ");
        if (const MO_UnconnectedCompositeModule *composite = scene.unconnectedComposite()) {
            m_out << "  composite";
            printCommon(*composite);
            m_out << (composite->firstAttribute()->value() ? ", first attribute set" : "") << '\n';
        }
    }

    void printLinks(const TUTimedValue &timedValue)
    {
        for (const MO_Node *node : timedValue.linkedNodes())
            m_out << ", drives " << nameOf(node, timedValue.sceneCommon());
        m_out << '\n';
    }

    void print(const TUSeqTimedValue &sequence)
    {
        m_out << "  sequence " << quoted(sequence.getName());
        printLinks(sequence);
        for (auto block = sequence.beginBlock(); block != sequence.endBlock(); ++block) {
            m_out << "    " << block->fromFrame() << '-' << block->toFrame();
            TUSeq *const seq = block->seq();
            if (const AT_TransitionSeq *transition = AT_TransitionSeq::toTransition(seq)) {
                m_out << " transition " << idOf(transition->id) << ", " << transition->framesBeforeCut()
                      << " before the cut, type " << transition->type << ", angle " << transition->angle
                      << (transition->reverse ? ", reverse" : "");
            } else if (seq && seq->sceneSeq()) {
                m_out << " object " << idOf(seq->objectId()) << ", scene " << idOf(seq->sceneSeq()->id);
                if (const AT_TimeWarpSeq *warp = AT_TimeWarpSeq::toTimeWarp(seq))
                    m_out << ", shows " << warp->start << " to " << warp->end;
            } else {
                m_out << " empty";
            }
            m_out << '\n';
        }
    }

    void print(const TUSoundTimedValue &sounds)
    {
        m_out << "  sounds " << quoted(sounds.getName()) << (sounds.audible ? "" : ", not audible")
              << (sounds.muted ? ", muted" : "") << (sounds.isExcluded() ? ", excluded" : "");
        printLinks(sounds);
        for (const TUSoundTimedValue::Sound &sound : sounds.sounds())
            m_out << "    " << sound.fromFrame << '-' << sound.toFrame << " sound " << idOf(sound.id) << ' '
                  << quoted(sound.name) << '\n';
    }

    void print(const MO_Node &node, const std::string &indent)
    {
        const auto *group = dynamic_cast<const TUGroup *>(&node);
        m_out << indent << node.keyword().toStdString();
        printCommon(node);
        if (const auto *animated = dynamic_cast<const MO_AnimatedModule *>(&node))
            m_out << ", alignment " << animated->cameraAlignment();
        if (const auto *element = dynamic_cast<const MO_ElementModule *>(&node)) {
            m_out << ", line art " << element->lineArtDrawingMode();
            if (const TUTimedValue *driver = element->drawingAttr()->linkedTimedValue())
                m_out << ", driven by " << quoted(driver->getName());
        }
        m_out << '\n';
        if (!group)
            return;
        for (auto inner = group->subNodesBegin(); inner != group->subNodesEnd(); ++inner)
            print(**inner, indent + "  ");
    }

    void printCommon(const MO_Node &node)
    {
        m_out << ' ' << quoted(node.instanceName()) << (node.isEnabled() ? "" : ", disabled")
              << (node.lock() ? ", locked" : "") << (node.isCollapsed() ? ", collapsed" : "");
        if (const MO_Node *parent = node.getParentNode())
            m_out << ", below " << nameOf(parent, node.sceneCommon());
        if (const MO_Port *port = node.inPort(0); port && port->realSrcPort())
            m_out << ", fed by " << nameOf(port->realSrcPort()->node(), node.sceneCommon());
    }

    std::ostringstream m_out;
};

} // namespace

std::string textOf(const SC_Project &project)
{
    Printer printer;
    printer.print(project);
    return printer.text();
}

std::string textOf(const SC_FileReport &report)
{
    std::string text;
    for (SC_FileReport::Entry entry : report.entries()) {
        entry.file = QFileInfo(entry.file).fileName();
        text += entry.text().toStdString() + '\n';
    }
    return text;
}
