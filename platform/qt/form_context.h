#pragma once
// What every form and every control is built with. main makes one and hands it down; each test makes its own.

class EventGuard;
class HeldKeys;
class ModalRunner;
struct ZORMOD;

/// References to the state and to the helpers all forms share. They outlive every form.
struct FormContext {
    ZORMOD& zormod;
    EventGuard& guard;
    HeldKeys& heldKeys;
    ModalRunner& modals;
};
