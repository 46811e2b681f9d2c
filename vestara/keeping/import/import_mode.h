#pragma once

namespace vestara {

/// How a file and what the archive holds come together.
enum class ImportMode {
  guarded,  ///< nothing may go; a file that begins later and agrees on a hundred rows is joined
  add,      ///< what the file does not have stays; a differing row refuses the import
  replace,  ///< the file takes the archive's place
};

}  // namespace vestara
