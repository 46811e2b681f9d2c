#include "tests/faults/quota_vfs.h"

#include <sqlite3.h>

namespace faults {
namespace {

int64_t allowance = 0;
bool was_refused = false;
sqlite3_vfs* real_system = nullptr;

/// The engine hands out szOsFile bytes: this head, and behind it the real file.
struct QuotaFile {
  sqlite3_file head;
  sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

sqlite3_file* real(sqlite3_file* file) { return reinterpret_cast<QuotaFile*>(file)->real(); }

int write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
  if (count > allowance) {
    was_refused = true;
    return SQLITE_FULL;
  }
  allowance -= count;
  return real(file)->pMethods->xWrite(real(file), bytes, count, offset);
}

/// Every method but the write is the real file's.
const sqlite3_io_methods methods = {
    3,
    [](sqlite3_file* f) { return real(f)->pMethods->xClose(real(f)); },
    [](sqlite3_file* f, void* p, int n, sqlite3_int64 o) { return real(f)->pMethods->xRead(real(f), p, n, o); },
    write,
    [](sqlite3_file* f, sqlite3_int64 n) { return real(f)->pMethods->xTruncate(real(f), n); },
    [](sqlite3_file* f, int flags) { return real(f)->pMethods->xSync(real(f), flags); },
    [](sqlite3_file* f, sqlite3_int64* n) { return real(f)->pMethods->xFileSize(real(f), n); },
    [](sqlite3_file* f, int lock) { return real(f)->pMethods->xLock(real(f), lock); },
    [](sqlite3_file* f, int lock) { return real(f)->pMethods->xUnlock(real(f), lock); },
    [](sqlite3_file* f, int* out) { return real(f)->pMethods->xCheckReservedLock(real(f), out); },
    [](sqlite3_file* f, int op, void* arg) { return real(f)->pMethods->xFileControl(real(f), op, arg); },
    [](sqlite3_file* f) { return real(f)->pMethods->xSectorSize(real(f)); },
    [](sqlite3_file* f) { return real(f)->pMethods->xDeviceCharacteristics(real(f)); },
    [](sqlite3_file* f, int region, int size, int extend, void volatile** out) {
      return real(f)->pMethods->xShmMap(real(f), region, size, extend, out);
    },
    [](sqlite3_file* f, int offset, int n, int flags) {
      return real(f)->pMethods->xShmLock(real(f), offset, n, flags);
    },
    [](sqlite3_file* f) { real(f)->pMethods->xShmBarrier(real(f)); },
    [](sqlite3_file* f, int remove) { return real(f)->pMethods->xShmUnmap(real(f), remove); },
    [](sqlite3_file* f, sqlite3_int64 o, int n, void** out) { return real(f)->pMethods->xFetch(real(f), o, n, out); },
    [](sqlite3_file* f, sqlite3_int64 o, void* p) { return real(f)->pMethods->xUnfetch(real(f), o, p); },
};

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out_flags) {
  file->pMethods = nullptr;
  const int code = real_system->xOpen(real_system, name, real(file), flags, out_flags);
  if (code == SQLITE_OK) file->pMethods = &methods;
  return code;
}

sqlite3_vfs quota_system;

}  // namespace

QuotaFileSystem::QuotaFileSystem(int64_t bytes) {
  real_system = sqlite3_vfs_find(nullptr);
  quota_system = *real_system;
  quota_system.zName = "quota";
  quota_system.szOsFile = static_cast<int>(sizeof(QuotaFile)) + real_system->szOsFile;
  quota_system.xOpen = &open;
  quota_system.pNext = nullptr;
  sqlite3_vfs_register(&quota_system, 1);
  allow(bytes);
}

QuotaFileSystem::~QuotaFileSystem() {
  sqlite3_vfs_unregister(&quota_system);
  sqlite3_vfs_register(real_system, 1);
}

void QuotaFileSystem::allow(int64_t bytes) {
  allowance = bytes;
  was_refused = false;
}

bool QuotaFileSystem::refused() { return was_refused; }

}  // namespace faults
