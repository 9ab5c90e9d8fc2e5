#include "infofields/PKC_PanelInfoFieldDescList.h"

#include "records/RecordClone_p.h"
#include "scene/base/whoami.h"

const QString PKC_PanelInfoFieldDescList::kPIO_PKMETA_Keyword = QStringLiteral("scenePanelInfoFieldList");
const QString PKC_PanelInfoFieldDescList::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_PanelInfoFieldDescList::PKC_PanelInfoFieldDescList(const QString &name) :
    PKC_PanelInfoFieldDescList(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_PanelInfoFieldDescList::PKC_PanelInfoFieldDescList(
    const QString &name, const QString &creator, const QString &version) :
    PKC_InfoFieldDescList(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_PanelInfoFieldDescList::~PKC_PanelInfoFieldDescList() = default;

PIO_Metadata *PKC_PanelInfoFieldDescList::clone() const
{
    return cloneRecord(*this);
}
