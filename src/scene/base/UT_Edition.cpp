#include "scene/base/UT_Edition.h"

std::atomic<quint64> UT_Edition::s_current{1};
std::atomic<quint64> UT_Edition::s_deaths{1};
