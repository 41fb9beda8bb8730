// SPDX-License-Identifier: MIT
// Lies under a system library's name beside the program.
extern "C" int Planted() {
    return 1;
}
