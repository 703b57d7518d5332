// Calls into code that may throw or crash.
#pragma once

// Calls `function` with `argument`. False when a structured exception, a crash or a throw of another
// compiler's code among them, left it; what it held is then unwound as far as its own compiler provides for.
// Exceptions that are handled inside pass unseen, as do those of other threads. A C++ exception of this
// compiler must not leave it.
extern "C" bool CallGuarded(void (*function)(void* argument), void* argument);
