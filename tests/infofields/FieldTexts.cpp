#include "infofields/FieldTexts.h"

#include <QStringList>

namespace
{

QString wordOf(PKC_InfoFieldDesc::Size size)
{
    switch (size) {
    case PKC_InfoFieldDesc::MINIMUM:
        return QStringLiteral(" MINIMUM");
    case PKC_InfoFieldDesc::MAXIMUM:
        return QStringLiteral(" MAXIMUM");
    case PKC_InfoFieldDesc::DEFAULT:
        return {};
    case PKC_InfoFieldDesc::CUSTOM:
        return QStringLiteral(" CUSTOM");
    }
    return QStringLiteral(" ?");
}

QString entryOf(const PKC_InfoFieldDesc &desc)
{
    const QString height =
        desc.height() == PKC_InfoFieldDesc::DEFAULT_HEIGHT ? QString() : QStringLiteral(" %1").arg(desc.height());
    return QStringLiteral("%1:%2 %3%4%5")
        .arg(QString::number(desc.id()), desc.name(), QString::number(desc.type()), wordOf(desc.size()), height);
}

QString entryOf(const UT_SharedPtr<PKC_InfoField> &field)
{
    if (!field)
        return QStringLiteral("null");
    QString entry = entryOf(static_cast<const PKC_InfoFieldDesc &>(*field));
    if (!field->dragName().isEmpty())
        entry += QStringLiteral(" dragged ") + field->dragName();
    return entry + QLatin1Char('=') + field->value();
}

QString entryOf(const PKC_ExtraInfoFieldDesc &desc)
{
    return QStringLiteral("%1 %2 @%3").arg(desc.name(), QString::number(desc.type()), QString::number(desc.position()));
}

template <typename List>
std::string joined(const List &list)
{
    QStringList entries;
    for (const auto &entry : list)
        entries += entryOf(entry);
    return entries.join(QStringLiteral(" | ")).toStdString();
}

} // namespace

std::string textOf(const PKC_InfoFieldDesc &desc)
{
    return entryOf(desc).toStdString();
}

std::string textOf(const PKC_InfoFieldDescList &list)
{
    return joined(list);
}

std::string textOf(const PKC_ExtraInfoFieldDescList &list)
{
    return joined(list);
}

std::string textOf(const PKC_InfoFieldList &list)
{
    return joined(list);
}

std::list<int> idsOf(const PKC_InfoFieldDescList &list)
{
    std::list<int> ids;
    for (const PKC_InfoFieldDesc &field : list)
        ids.push_back(field.id());
    return ids;
}

std::list<int> idsOf(const PKC_InfoFieldList &list)
{
    std::list<int> ids;
    for (const UT_SharedPtr<PKC_InfoField> &field : list)
        ids.push_back(field->id());
    return ids;
}
