// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/native_file_store.h"
#include "platform/profile_text_store.h"

namespace vbr {

// INI files of the machine that runs the tests. It treats them as the real calls do: both pass the
// cases in fakes/profile_cases.h.
class NativeProfileStore : public ProfileTextStore {
  public:
    NativeProfileStore() : ProfileTextStore(files_) {}

  private:
    NativeFileStore files_;
};

}  // namespace vbr
