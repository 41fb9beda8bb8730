// SPDX-License-Identifier: MIT
#include "platform/win32/win_fault_catcher.h"

#include "platform/win32/windows.h"

#include <malloc.h>

// GCC has no __try. A frame of assembler registers the C runtime's handler instead, with a table of
// one row: what is guarded, the filter, and where to go on. Unlike a vectored handler it is asked
// only after every handler further in, so that faults which the system's own functions expect and
// handle stay theirs.
extern "C" {

void VbrCallGuarded(void (*work)(void*), void* context, DWORD* code);

// The frame is VbrCallGuarded's stack pointer; the address of the code lies behind the 32 bytes
// that belong to the called function.
LONG VbrAcceptFault(EXCEPTION_POINTERS* fault, void* frame) {
    DWORD* code = static_cast<DWORD**>(frame)[4];
    *code = fault->ExceptionRecord->ExceptionCode;
    return EXCEPTION_EXECUTE_HANDLER;
}

asm(R"(
    .section .text$VbrCallGuarded,"x"
    .globl VbrCallGuarded
    .def VbrCallGuarded; .scl 2; .type 32; .endef
    .seh_proc VbrCallGuarded
VbrCallGuarded:
    subq $40, %rsp
    .seh_stackalloc 40
    .seh_endprologue
    movq %r8, 32(%rsp)
    movq %rcx, %rax
    movq %rdx, %rcx
.LVbrGuarded:
    call *%rax
    nop
.LVbrGuardedEnd:
    addq $40, %rsp
    ret
    .seh_handler __C_specific_handler, @except
    .seh_handlerdata
    .long 1
    .rva .LVbrGuarded, .LVbrGuardedEnd, VbrAcceptFault, .LVbrGuardedEnd
    .section .text$VbrCallGuarded,"x"
    .seh_endproc
    .text
)");
}

namespace vbr {
namespace {

struct Call {
    const std::function<void()>& Work;
    bool Thrown = false;
};

void RunCall(void* context) {
    auto& call = *static_cast<Call*>(context);
    try {
        call.Work();
    } catch (...) {
        call.Thrown = true;
    }
}

}  // namespace

std::optional<std::uint32_t> WinFaultCatcher::Run(const std::function<void()>& work) {
    Call call{work};
    DWORD code = 0;
    VbrCallGuarded(RunCall, &call, &code);
    if (code == STATUS_STACK_OVERFLOW) {
        _resetstkoflw();
    }
    if (call.Thrown) {
        return kCodeCppException;
    }
    return code ? std::optional<std::uint32_t>(code) : std::nullopt;
}

}  // namespace vbr
