# Cross-building for 32-bit Windows with Debian's mingw-w64. Many hosts of the classic kind are 32-bit programs.
set(MINGW_TRIPLE i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
