#pragma once

namespace dorvane::sqlite {

/// The engine keeps one record of locks for every file that a process has open, found by device and inode. A forked
/// process inherits the records without the locks. A connection that it opened itself would share these records and
/// take the locks for held: two writers could then damage the archive. From the first call on, every forked process
/// sees files under device numbers of its own, so that it begins with records of its own.
void keep_files_apart_after_forks();

}  // namespace dorvane::sqlite
