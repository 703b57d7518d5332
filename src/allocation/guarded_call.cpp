#include "allocation/guarded_call.h"

// An exception frame on the stack, as the compilers of Windows make one for __try and __except, which this
// compiler does not know. It is asked only after every frame inside it, and ends with the call: nothing of it
// is visible to other threads.

#ifdef _WIN64

// The frame is a row of a table: an exception between the first two addresses is always (1) handled at the
// last. The nop keeps the call's return address between them.
asm(R"(
    .text
    .globl CallGuarded
    .seh_proc CallGuarded
CallGuarded:
    subq $40, %rsp
    .seh_stackalloc 40
    .seh_endprologue
    .seh_handler __C_specific_handler, @except
    .seh_handlerdata
    .long 1
    .rva 1f, 2f
    .long 1
    .rva 3f
    .text
1:  movq %rcx, %rax
    movq %rdx, %rcx
    call *%rax
    nop
2:  movb $1, %al
    addq $40, %rsp
    ret
3:  xorl %eax, %eax
    addq $40, %rsp
    ret
    .seh_endproc
)");

#else

// The frame is an entry of the thread's list. Its handler declines while inner frames unwind; else it has
// them unwound up to this entry and returns in place of the call. RtlUnwind keeps no register but the stack
// pointer.
asm(R"(
    .text
    .globl _CallGuarded
_CallGuarded:
    pushl %ebp
    pushl %ebx
    pushl %esi
    pushl %edi
    movl 20(%esp), %eax
    movl 24(%esp), %edx
    pushl $1f
    pushl %fs:0
    movl %esp, %fs:0
    pushl %edx
    call *%eax
    popl %edx
    movb $1, %al
    jmp 3f
1:  movl 4(%esp), %eax
    testl $6, 4(%eax)
    jz 2f
    movl $1, %eax
    ret
2:  movl 8(%esp), %ecx
    pushl $0
    pushl %eax
    pushl $4f
    pushl %ecx
    call _RtlUnwind@16
4:  movl 8(%esp), %esp
    xorl %eax, %eax
3:  popl %fs:0
    popl %edx
    popl %edi
    popl %esi
    popl %ebx
    popl %ebp
    ret
)");

#endif
