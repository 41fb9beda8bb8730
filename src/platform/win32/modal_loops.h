// SPDX-License-Identifier: MIT
#pragma once

namespace vbr {

// Ends the dialogs that are open on this thread, as if they were cancelled, and the innermost of
// its menus. What is around that one is ended by a further call, once it is gone.
void EndModalLoops();

}  // namespace vbr
