#include "scene/network/AT_Attr.h"

AT_Attr::~AT_Attr() = default;

void AT_Attr::setBool(bool) {}
