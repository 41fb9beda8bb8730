// SPDX-License-Identifier: MIT
#include <cstddef>
#include <intrin.h>

// The compiler calls these by itself, and there is no C runtime in the library to have them.
extern "C" {

void* memset(void* to, int value, std::size_t count) {
    __stosb(static_cast<unsigned char*>(to), static_cast<unsigned char>(value), count);
    return to;
}

void* memcpy(void* to, const void* from, std::size_t count) {
    __movsb(static_cast<unsigned char*>(to), static_cast<const unsigned char*>(from), count);
    return to;
}

}  // extern "C"
