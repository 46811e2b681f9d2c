# Builds for users and for ./check compile several sources of a library at once (CMAKE_UNITY_BUILD): most of a compilation
# is its headers. Tests are compiled alone, and so is everything in the dev build, which ./check --full makes too: each
# source (all but those of automation/com) is known to compile alone.
set(CMAKE_UNITY_BUILD_BATCH_SIZE 8)
