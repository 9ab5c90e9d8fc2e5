#pragma once

/// How the command ended. Scripts rely on the numbers.
enum class ExitCode {
    Done = 0,
    Failed = 1,
    Usage = 2,
    BadInput = 3,       ///< the input cannot be read or is not valid
    SomethingLost = 4,  ///< under --strict
    SomethingFound = 4, ///< by a check
    OutputExists = 5,
};
