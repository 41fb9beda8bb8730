// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace vbr {

// What several fakes of one test were told to do, in order.
using Journal = std::vector<std::string>;

}  // namespace vbr
