#pragma once

#include "cli/Subcommand.h"

Subcommand dumpCommand();
