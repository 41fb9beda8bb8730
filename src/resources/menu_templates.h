// SPDX-License-Identifier: MIT
#pragma once

#include "platform/menu_data.h"

namespace vbr {

// The program's own menu with that id (kMenuTray, kMenuHistoryRow), in English; null for any other.
const MenuTemplate* MenuTemplateById(int menuId);

}  // namespace vbr
