#pragma once  // installed

#include "records/recordset.h"

namespace vestara {

// What a connector hands out, under the library's own name.
using records::Column;
using records::RecordSet;

}  // namespace vestara
