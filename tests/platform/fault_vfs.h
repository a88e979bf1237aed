#pragma once

#include <sqlite3.h>

#include <string>

namespace platform::testing {

/// Stands between SQLite and the disk for as long as it lives: counts what is forced to the disk, and fails
/// writes and syncs when told to. Only databases opened meanwhile go through it.
class FaultVfs {
public:
    FaultVfs();
    ~FaultVfs();
    FaultVfs(const FaultVfs&) = delete;
    FaultVfs& operator=(const FaultVfs&) = delete;

    enum class Operation { None, Write, Sync, Delete };
    /// The n-th operation of this kind from now on, 1 being the next, and all that follow fail with the code.
    static void failFrom(Operation operation, int n, int code);
    /// From here on all goes well again.
    static void heal();
    /// Whether an operation was made to fail since failFrom().
    static bool hasFailed();

    struct Counts {
        int databaseSyncs = 0;
        int journalSyncs = 0;
        int folderSyncs = 0;
        int databaseWrites = 0;
    };
    /// Since the last call.
    static Counts takeCounts();
};

} // namespace platform::testing
