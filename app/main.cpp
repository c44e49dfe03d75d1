#include "start/Lancement.h"

int main(int argc, char **argv) {
    return Lance(argc, argv);
}
