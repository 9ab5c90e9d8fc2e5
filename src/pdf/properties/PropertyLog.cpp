#include "pdf/properties/PropertyLog_p.h"

#include <QVariant>

Q_LOGGING_CATEGORY(plotkaProperties, "plotka.properties")

const char *typeNameOf(const QVariant &value)
{
    const char *name = value.typeName();
    return name ? name : "";
}
