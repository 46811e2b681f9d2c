#pragma once

#include "vestara/draws/wheel_names.h"

namespace vestara::host {

using vestara::city_codes;
using vestara::wheel_choices;
using vestara::wheel_code;
using vestara::wheel_name;
using vestara::wheel_named;

}  // namespace vestara::host
