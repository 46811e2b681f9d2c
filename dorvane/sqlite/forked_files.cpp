#include "dorvane/sqlite/forked_files.h"

#if !defined(_WIN32)
#include <pthread.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include "dorvane/home_process.h"
#endif

namespace dorvane::sqlite {

#if defined(_WIN32)

void keep_files_apart_after_forks() {}

#else

namespace {

using StatByName = int (*)(const char*, struct stat*);
using StatByNumber = int (*)(int, struct stat*);

/// The engine's file system, and its own two calls.
struct FileCalls {
  sqlite3_vfs* files = nullptr;
  StatByName stat_by_name = nullptr;
  StatByNumber stat_by_number = nullptr;
};

/// Filled before any fork: a forked process takes no lock.
constinit FileCalls found;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

void shift_device(struct stat* facts) { facts->st_dev ^= static_cast<dev_t>(HomeProcess::generation()) << 40U; }

int shifted_by_name(const char* path, struct stat* facts) {
  const int result = found.stat_by_name(path, facts);
  if (result == 0) shift_device(facts);
  return result;
}

int shifted_by_number(int file, struct stat* facts) {
  const int result = found.stat_by_number(file, facts);
  if (result == 0) shift_device(facts);
  return result;
}

void see_files_anew() {
  found.files->xSetSystemCall(found.files, "stat", reinterpret_cast<sqlite3_syscall_ptr>(&shifted_by_name));
  found.files->xSetSystemCall(found.files, "fstat", reinterpret_cast<sqlite3_syscall_ptr>(&shifted_by_number));
}

bool prepare() {
  sqlite3_vfs* const files = sqlite3_vfs_find("unix");
  if (!files || files->iVersion < 3) return false;
  found = {files, reinterpret_cast<StatByName>(files->xGetSystemCall(files, "stat")),
           reinterpret_cast<StatByNumber>(files->xGetSystemCall(files, "fstat"))};
  return found.stat_by_name && found.stat_by_number && pthread_atfork(nullptr, nullptr, see_files_anew) == 0;
}

}  // namespace

void keep_files_apart_after_forks() { [[maybe_unused]] static const bool prepared = prepare(); }

#endif

}  // namespace dorvane::sqlite
