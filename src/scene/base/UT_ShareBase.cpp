#include "scene/base/UT_ShareBase.h"

UT_ShareBase::~UT_ShareBase() = default;
