#pragma once

/// What the system answers to this process when it locks a file.
enum class FakeLocks { None, DoNothing, Refused };
extern FakeLocks fakeLocks;
