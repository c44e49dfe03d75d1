#include "platform/db/Attente.h"

#include <cerrno>
#include <poll.h>

namespace {

thread_local std::function<Attente> chosen;

} // namespace

bool attendsSeulement(int socket, bool read, bool write, std::chrono::milliseconds limit) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + limit;
    pollfd waited{socket, short((read ? POLLIN : 0) | (write ? POLLOUT : 0)), 0};
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        const int ready = poll(&waited, 1, int(std::max<std::chrono::milliseconds::rep>(left.count(), 0)));
        if (ready >= 0 || errno != EINTR) {
            return ready != 0; // an error is found by whoever uses the socket
        }
    }
}

void setAttente(std::function<Attente> attente) {
    chosen = std::move(attente);
}

bool attends(int socket, bool read, bool write, std::chrono::milliseconds limit) {
    const std::function<Attente> wait = chosen; // what happens meanwhile may choose another
    return wait ? wait(socket, read, write, limit) : attendsSeulement(socket, read, write, limit);
}
