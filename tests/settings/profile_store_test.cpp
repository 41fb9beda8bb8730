// SPDX-License-Identifier: MIT
#include "fakes/native_profile_store.h"
#include "fakes/profile_cases.h"

namespace vbr {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Native, ProfileStoreTest, NativeProfileStore);

}  // namespace
}  // namespace vbr
