#pragma once
// The turn of the event loop in the middle of a long loop. It stands once in each round of every such loop and is the
// only moment at which a stop button can run.

/// The program's event loop as a long loop sees it.
class EventLoop {
public:
    virtual ~EventLoop() = default;
    /// Lets waiting events run if some milliseconds have passed since they last did; otherwise returns at once, so a
    /// call costs a loop next to nothing. An end of the program that has become pending meanwhile is thrown here.
    virtual void yield() = 0;
};
