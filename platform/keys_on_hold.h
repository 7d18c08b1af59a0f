#pragma once
// The keys that are typed while no window can take them, because the one before has gone and the next hasn't come up. They
// are kept in their order, and none is handed on twice: a key can have left the window system and not yet have reached a
// control when the window changes.

#include <cstdint>
#include <deque>
#include <optional>

/// A key event as the window system sends it.
struct RawKey {
    bool isPress = false;
    unsigned code = 0;      ///< of the physical key
    unsigned modifiers = 0; ///< the window system's own set
    unsigned time = 0;      ///< the window system's clock, milliseconds
    bool operator==(const RawKey&) const = default;
};

/// The keys on their way to the controls, and those that wait.
class KeysOnHold {
public:
    /// Milliseconds of a clock that never goes back.
    using Moment = std::int64_t;
    /// A key that has waited longer is not handed on: what it was meant for has long passed.
    static constexpr Moment patience = 3000;

    /// The windows change: from now on keys wait, together with those that have not reached a control yet.
    void hold(Moment now);
    bool isHolding() const { return isHolding_; }
    /// When hold was called last.
    Moment since() const { return since_; }
    /// Keys don't wait any longer. Those that still wait are given up; returns the number of presses among them.
    int end();

    /// A key comes from the window system. True: it waits; false: it goes on to the toolkit.
    bool comes(const RawKey& key, Moment now);
    /// A key that waited goes on to the toolkit.
    void goesOn(const RawKey& key, Moment now);
    /// The toolkit brings a key to a control, perhaps several times. True: the key waits and is to come later, so this one
    /// must not be seen.
    bool reaches(const RawKey& key);
    /// True while hold has taken keys that the toolkit may still bring to a control.
    bool mayStillReach() const { return !taken_.empty(); }

    /// Takes the oldest key that waits. Keys beyond patience are left out and counted in `givenUp` if they are presses.
    std::optional<RawKey> next(Moment now, int& givenUp);
    /// Takes the oldest event that waits and needn't: one of the key `code`, or the release of a key whose press was handed
    /// on. All others go on waiting.
    std::optional<RawKey> nextOf(unsigned code);
    /// True if a release of this key waits: as far as anybody has been told, the key is down.
    bool isReleaseWaiting(unsigned code) const;

private:
    struct Timed {
        RawKey key;
        Moment came;
    };
    bool isHolding_ = false;
    Moment since_ = 0;
    std::deque<Timed> underway_; ///< given to the toolkit, not seen at a control yet
    std::deque<Timed> waiting_;
    std::deque<RawKey> taken_;
};
