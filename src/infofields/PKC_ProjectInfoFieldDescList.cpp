#include "infofields/PKC_ProjectInfoFieldDescList.h"

#include "records/RecordClone_p.h"
#include "scene/base/whoami.h"

const QString PKC_ProjectInfoFieldDescList::kPIO_PKMETA_Keyword = QStringLiteral("projectPanelInfoFieldList");
const QString PKC_ProjectInfoFieldDescList::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_ProjectInfoFieldDescList::PKC_ProjectInfoFieldDescList(const QString &name) :
    PKC_ProjectInfoFieldDescList(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_ProjectInfoFieldDescList::PKC_ProjectInfoFieldDescList(
    const QString &name, const QString &creator, const QString &version) :
    PKC_InfoFieldDescList(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_ProjectInfoFieldDescList::~PKC_ProjectInfoFieldDescList() = default;

PIO_Metadata *PKC_ProjectInfoFieldDescList::clone() const
{
    return cloneRecord(*this);
}
