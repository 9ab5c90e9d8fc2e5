#pragma once

#include "cli/Subcommand.h"

Subcommand checkCommand();
