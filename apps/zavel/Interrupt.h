// SIGINT, SIGTERM and SIGHUP as a wish to end that is looked at between two steps, so that none of them
// leaves a temporary file behind.
#ifndef ZAVEL_INTERRUPT_H
#define ZAVEL_INTERRUPT_H

namespace zavel::host {

// From now on the signals only leave word, and calls that wait (reading standard input) return.
void watchInterrupts();

// The number of the signal that came, 0 while none has. A second one ends the process at once.
int interrupted();

// The exit status that goes with it, 128 and the signal's number.
int interruptedStatus();

}  // namespace zavel::host

#endif
