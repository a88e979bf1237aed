#include "fault_vfs.h"

#include <cstring>
#include <utility>

namespace platform::testing {

namespace {

using Operation = FaultVfs::Operation;

/// What SQLite sees as the file; the real one lies behind it.
struct File {
    sqlite3_file base;
    bool isJournal;
    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

sqlite3_vfs* realVfs = nullptr;
sqlite3_vfs vfs;
FaultVfs::Counts counts;
Operation failing = Operation::None;
int left = 0;
int failCode = SQLITE_OK;
bool failed = false;

int faultOf(Operation operation) {
    if (operation != failing || --left > 0) return SQLITE_OK;
    failed = true;
    return failCode;
}

File& fileOf(sqlite3_file* file) { return *reinterpret_cast<File*>(file); }
sqlite3_file* realOf(sqlite3_file* file) { return fileOf(file).real(); }

int closeFile(sqlite3_file* file) { return realOf(file)->pMethods->xClose(realOf(file)); }
int readFile(sqlite3_file* file, void* data, int size, sqlite3_int64 at) {
    return realOf(file)->pMethods->xRead(realOf(file), data, size, at);
}
int writeFile(sqlite3_file* file, const void* data, int size, sqlite3_int64 at) {
    if (const int fault = faultOf(Operation::Write)) return fault;
    if (!fileOf(file).isJournal) ++counts.databaseWrites;
    return realOf(file)->pMethods->xWrite(realOf(file), data, size, at);
}
int truncateFile(sqlite3_file* file, sqlite3_int64 size) {
    return realOf(file)->pMethods->xTruncate(realOf(file), size);
}
int syncFile(sqlite3_file* file, int flags) {
    if (const int fault = faultOf(Operation::Sync)) return fault;
    ++(fileOf(file).isJournal ? counts.journalSyncs : counts.databaseSyncs);
    return realOf(file)->pMethods->xSync(realOf(file), flags);
}
int fileSize(sqlite3_file* file, sqlite3_int64* size) {
    return realOf(file)->pMethods->xFileSize(realOf(file), size);
}
int lockFile(sqlite3_file* file, int lock) { return realOf(file)->pMethods->xLock(realOf(file), lock); }
int unlockFile(sqlite3_file* file, int lock) { return realOf(file)->pMethods->xUnlock(realOf(file), lock); }
int checkReservedLock(sqlite3_file* file, int* result) {
    return realOf(file)->pMethods->xCheckReservedLock(realOf(file), result);
}
int fileControl(sqlite3_file* file, int operation, void* argument) {
    return realOf(file)->pMethods->xFileControl(realOf(file), operation, argument);
}
int sectorSize(sqlite3_file* file) { return realOf(file)->pMethods->xSectorSize(realOf(file)); }
int characteristics(sqlite3_file* file) {
    return realOf(file)->pMethods->xDeviceCharacteristics(realOf(file));
}

const sqlite3_io_methods methods = {1, closeFile, readFile, writeFile, truncateFile, syncFile, fileSize,
                                    lockFile, unlockFile, checkReservedLock, fileControl, sectorSize,
                                    characteristics,
                                    // Version 1 ends here: no shared memory, no mapping.
                                    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr};

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    File& made = fileOf(file);
    made.isJournal = (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    const int result = realVfs->xOpen(realVfs, name, made.real(), flags, outFlags);
    made.base.pMethods = made.real()->pMethods ? &methods : nullptr;
    return result;
}

int deleteFile(sqlite3_vfs*, const char* name, int syncFolder) {
    if (const int fault = faultOf(Operation::Delete)) return fault;
    if (syncFolder) ++counts.folderSyncs;
    return realVfs->xDelete(realVfs, name, syncFolder);
}

} // namespace

FaultVfs::FaultVfs() {
    realVfs = sqlite3_vfs_find(nullptr);
    vfs = *realVfs;
    vfs.zName = "fault";
    vfs.szOsFile = static_cast<int>(sizeof(File)) + realVfs->szOsFile;
    vfs.xOpen = openFile;
    vfs.xDelete = deleteFile;
    sqlite3_vfs_register(&vfs, 1);
    heal();
    takeCounts();
}

FaultVfs::~FaultVfs() {
    sqlite3_vfs_unregister(&vfs);
    sqlite3_vfs_register(realVfs, 1);
}

void FaultVfs::failFrom(Operation operation, int n, int code) {
    failing = operation;
    left = n;
    failCode = code;
    failed = false;
}

void FaultVfs::heal() { failing = Operation::None; }

bool FaultVfs::hasFailed() { return failed; }

FaultVfs::Counts FaultVfs::takeCounts() { return std::exchange(counts, {}); }

} // namespace platform::testing
