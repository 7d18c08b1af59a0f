#include "support/doubles.h"

#include <gtest/gtest.h>


std::string utf8(TextView text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
        }
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c < 0x800) {
            out += static_cast<char>(0xC0 | (c >> 6));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            out += static_cast<char>(0xE0 | (c >> 12));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (c >> 18));
            out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

std::vector<std::string> utf8(const std::vector<Text>& texts) {
    std::vector<std::string> out;
    for (const Text& text : texts) {
        out.push_back(utf8(text));
    }
    return out;
}

ClipboardText FakeClipboard::read() {
    ++reads;
    return failing ? ClipboardText{} : ClipboardText{true, contents};
}

bool FakeClipboard::write(TextView text) {
    if (failing) {
        return false;
    }
    contents = Text(text);
    written.emplace_back(text);
    return true;
}

bool FakeClipboard::clear() {
    if (failing) {
        return false;
    }
    contents.clear();
    ++clears;
    return true;
}

void ScriptedDialogs::showMessage(const Text& text, const Text& title) {
    messages.push_back({text, title});
    if (--expectedMessages < 0) {
        ADD_FAILURE() << "a message that nobody expected: " << utf8(title) << ": " << utf8(text);
    }
}

Answer ScriptedDialogs::askOkCancel(const Text& text, const Text& title) {
    questions.push_back({text, title, {}});
    if (answers.empty()) {
        ADD_FAILURE() << "a question that nobody expected: " << utf8(text);
        return Answer::cancel;
    }
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

Text ScriptedDialogs::askText(const Text& prompt, const Text& title, const Text& defaultText) {
    questions.push_back({prompt, title, defaultText});
    if (texts.empty()) {
        ADD_FAILURE() << "a question that nobody expected: " << utf8(prompt);
        return {};
    }
    const Text text = texts.front();
    texts.pop_front();
    return text;
}

Answer ScriptedDialogs::askYesNoCancel(const Text& prompt, const Text& text) {
    return askOkCancel(text, prompt);
}

void ScriptedDialogs::openProgress(const Text& name, const Text& caption, bool canStop) {
    progressOpen = true;
    progressNames.push_back(name);
    progressCaptions.push_back(caption);
    progressCanStop.push_back(canStop);
}

void ScriptedDialogs::showProgress(const Text& text) {
    EXPECT_TRUE(progressOpen) << "progress without its form: " << utf8(text);
    progressTexts.push_back(text);
}

void FakeScreen::showCurrentCell() {
    ++shownCells;
    if (onShowCurrentCell) {
        onShowCurrentCell();
    }
}

void FakeCommands::run(TextView name) {
    names.emplace_back(name);
    if (onRun) {
        onRun();
    }
}

void FakeForms::open(TextView name) {
    opened.emplace_back(name);
    const auto script = scripts.find(Text(name));
    if (script == scripts.end()) {
        loaded.insert(Text(name));
    } else {
        script->second();
    }
}

void FakeEventLoop::yield() {
    const auto action = atTurn.find(++turns);
    if (action != atTurn.end()) {
        const std::function<void()> work = action->second; // it may set other work
        work();
    }
}
