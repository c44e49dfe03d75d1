// The second process of LockTest; with a second argument, in a folder where its locks do nothing.
#include "platform/FakeLocks.h"
#include "platform/db/LockTest.h"

int main(int argc, char **argv) {
    fakeLocks = argc > 2 ? FakeLocks::DoNothing : FakeLocks::None;
    return argc > 1 ? tryLock(QString::fromLocal8Bit(argv[1])) : 2;
}
