#pragma once
// The text of a box whose change means something. Program and user change it by different roads, but both compare with
// the old text, and only a real difference runs the change rule. So which box "really changed", and therefore speaks,
// is decided once, here, whatever the toolkit signals.

#include "platform/text.h"

#include <functional>
#include <utility>

/// A watched text. The change rule may set the text again; the inner change runs the rule too.
class WatchedText {
public:
    /// The rule that runs after each real change, with the text already new.
    using ChangeRule = std::function<void()>;

    /// The text now.
    const Text& text() const { return text_; }
    /// Sets the rule; replaces an earlier one.
    void onChange(ChangeRule rule) { rule_ = std::move(rule); }
    /// The program sets the text. Returns true if it differed.
    bool set(TextView text) { return take(text); }
    /// The user has changed the text. Returns true if it differed.
    bool typed(TextView text) { return take(text); }

private:
    bool take(TextView text) {
        if (text == text_) {
            return false;
        }
        text_ = Text(text);
        if (rule_) {
            rule_();
        }
        return true;
    }
    Text text_;
    ChangeRule rule_;
};
