#include "interchange/otio/OtioKeeper_p.h"

#include "interchange/ImportNotes_p.h"
#include "interchange/LooseJson_p.h"

void OtioKeeper::keep(const OtioNode &node, const QString &path, Name name, Records &records)
{
    keep(node, node.metadata, path, name, records);
}

void OtioKeeper::keep(
    const OtioNode &node, const QJsonObject &foreign, const QString &path, Name name, Records &records)
{
    const std::vector<Carried> carried = carriedBy(node, foreign, name);
    if (carried.empty())
        return;
    const QString text = m_source.outline.textOf(m_source.text, node.object, node.childMember, mostBytes);
    if (text.isNull()) {
        tellTooLarge(node, carried);
        return;
    }
    for (const Carried &each : carried)
        tell(node, each);
    const QString own = QStringLiteral("otio");
    records.push_back({path.isEmpty() ? own : own + u'/' + path, text});
}

void OtioKeeper::keepGaps(const OtioNode &track, const QString &path, Records &records)
{
    for (const OtioNode &node : track.children) {
        if (node.kind == OtioNode::Gap)
            keep(node, pathIn(track, path, node), NameHasNone, records);
    }
}

QString OtioKeeper::pathOf(const OtioNode &track)
{
    return QStringLiteral("track %1").arg(track.number);
}

QString OtioKeeper::pathIn(const OtioNode &track, const QString &trackPath, const OtioNode &item)
{
    if (track.isImplied)
        return trackPath;
    return (trackPath.isEmpty() ? QString() : trackPath + u'/') + QStringLiteral("item %1").arg(item.number);
}

std::vector<OtioKeeper::Carried> OtioKeeper::carriedBy(
    const OtioNode &node, const QJsonObject &foreign, Name name) const
{
    const auto listed = [](const QStringList &list, qsizetype length = 80) {
        return OtioText::brief(list.join(QStringLiteral(", ")), length);
    };
    std::vector<Carried> carried;
    if (!isUsualTransition(node)) {
        carried.push_back({"transition-type",
            OtioText::tr("its type %1 is not known; it becomes a dissolve").arg(OtioText::brief(node.type)),
            /*isChange*/ true});
    }
    if (name == NameHasNone && !node.name.isEmpty())
        carried.push_back({"name-without-place", OtioText::tr("its name has no place and is kept")});
    if (node.markerCount > 0)
        carried.push_back({"markers", OtioText::tr("markers are kept: %1").arg(node.markerCount)});
    if (!node.effects.isEmpty())
        carried.push_back({"effects", OtioText::tr("effects are kept: %1").arg(listed(node.effects))});
    if (!foreign.isEmpty())
        carried.push_back({"metadata", OtioText::tr("metadata is kept: %1").arg(listed(foreign.keys()))});
    if (!node.media.isEmpty())
        carried.push_back({"media-reference", OtioText::tr("media is kept: %1").arg(listed(node.media, 240))});
    if (node.kind == OtioNode::Clip && !node.sourceStart.isZero()) {
        const double frames = node.sourceStart.inUnits({m_rate.numerator(), m_rate.denominator()});
        carried.push_back({"source-in-point",
            OtioText::tr("that it begins %1 frames into its media is kept").arg(QString::number(frames, 'f', 3))});
    }
    if (!node.otherFields.isEmpty())
        carried.push_back({"unknown-field", OtioText::tr("unknown fields are kept: %1").arg(listed(node.otherFields))});
    return carried;
}

bool OtioKeeper::isUsualTransition(const OtioNode &node)
{
    return node.kind != OtioNode::Transition || node.type.isEmpty() || node.type == QLatin1String("SMPTE_Dissolve");
}

void OtioKeeper::tell(const OtioNode &node, const Carried &carried)
{
    if (carried.isChange)
        m_notes.change(carried.code, node.place, carried.message);
    else
        m_notes.info(carried.code, node.place, carried.message);
}

void OtioKeeper::tellTooLarge(const OtioNode &node, const std::vector<Carried> &carried)
{
    QStringList lost;
    for (const Carried &each : carried) {
        if (each.isChange)
            tell(node, each);
        lost << QString::fromLatin1(each.code);
    }
    m_notes.loss("too-large", node.place,
        OtioText::tr("it has more than %1 MB of JSON, of which this has no place and is not kept: %2")
            .arg(QString::number(mostBytes / (1024 * 1024)), lost.join(QStringLiteral(", "))));
}
