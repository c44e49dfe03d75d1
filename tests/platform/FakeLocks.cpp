#include "platform/FakeLocks.h"

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>

FakeLocks fakeLocks = FakeLocks::None;

/// Stands before the C library's own for SQLite as for the program.
// By its label: the system's own declaration names its parameters otherwise.
extern "C" int fakeFcntl(int file, int command, ...) __asm__("fcntl64");
int fakeFcntl(int file, int command, ...) {
    va_list arguments;
    va_start(arguments, command);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    if (command == F_SETLK && fakeLocks != FakeLocks::None) {
        errno = ENOLCK;
        return fakeLocks == FakeLocks::Refused ? -1 : 0;
    }
    static const auto real = reinterpret_cast<int (*)(int, int, ...)>(dlsym(RTLD_NEXT, "fcntl64"));
    return real(file, command, argument);
}
