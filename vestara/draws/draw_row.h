#pragma once  // installed

#include "vestara/draws/draw_row.h"

namespace vestara {

using vestara::comes_before;
using vestara::DrawRow;
using vestara::same_draw;
using vestara::same_place;

}  // namespace vestara
