#pragma once

namespace vestara::host {

/// Opens whichever of standard input, output and error the caller closed, so that no file or connection opened later
/// gets its number and what is meant for the caller. Input then is empty, results cannot be written (EBADF), messages
/// are lost. Called first of all.
void open_standard_descriptors();

}  // namespace vestara::host
