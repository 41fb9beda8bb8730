// SPDX-License-Identifier: MIT
#include "phrases/command_saver.h"

namespace vbr {

void CommandSaver::SaveCommandAsync(const VBRCommand& record) {
    worker_.Post([this, path = CommandFileOf(record), xml = CommandToXml(record)] {
        files_.WriteCommandText(path, xml);
    });
}

}  // namespace vbr
