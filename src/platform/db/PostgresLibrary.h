#pragma once

/// Whether the server's client library is on this machine. To be asked once before its functions are called.
bool postgresLibraryLoads();
