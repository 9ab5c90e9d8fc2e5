#include "project/ObjectNameHelper.h"

Plotka::ObjectNameHelper::~ObjectNameHelper() = default;
