#pragma once
// A system call that fails in this process from now on, for good: for what no disk of a test does on demand, such as
// a failing sync. Meant for forked children. Needs no privileges.

/// Makes the system call `number` (SYS_fsync ...) fail with `error` (EIO ...) without being carried out. Aborts if the
/// system refuses.
void failSystemCall(int number, int error);
