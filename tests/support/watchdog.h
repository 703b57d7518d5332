// Ends a test run that hangs, so that a dialog which nobody answers does not hold the machine for ever.
#pragma once

namespace Watchdog {

// Starts the clock. Whoever makes progress feeds it; unfed for a minute, it ends the process with code 99.
void Start();
void Feed();

}  // namespace Watchdog
