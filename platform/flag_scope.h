#pragma once
// A flag that stands while a handler runs. Knows nothing of the program.

/// Sets a flag for the life of the object, so that no failure leaves it set.
class FlagScope {
public:
    explicit FlagScope(bool& flag) : flag_(flag), held_(flag) { flag_ = true; }
    ~FlagScope() { flag_ = held_; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& flag_;
    bool held_;
};
