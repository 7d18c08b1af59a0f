#include "safety/guarded_run.h"

#include "platform/failure.h"
#include "sheet/failure_recovery.h"

namespace {

enum class AfterRowWrite { staysThere, comesBack };

std::vector<std::string> heard(TestWorld& world, ZORMOD& zormod, const std::function<void()>& work, AfterRowWrite way) {
    constexpr int manyMessages = 1000; // the callers judge how many there may be
    world.dialogs.expectedMessages = manyMessages;
    world.dialogs.messages.clear();
    const Position before = zormod.position;
    try {
        work();
    } catch (const RuntimeFailure& failure) {
        if (way == AfterRowWrite::comesBack && failure.rowWrite && zormod.position.windowFirst == before.windowFirst) {
            zormod.position = before;
        }
        putStateRight(zormod, failure);
        if (!failure.isTold) {
            world.dialogs.showMessage(Text(failureText(failure.kind)), Text(failureTitle));
        }
    }
    std::vector<std::string> texts;
    for (const auto& message : world.dialogs.messages) {
        texts.push_back(utf8(message.text));
    }
    world.dialogs.expectedMessages = 0;
    return texts;
}

} // namespace

std::vector<std::string> heardOf(TestWorld& world, ZORMOD& zormod, const std::function<void()>& work) {
    return heard(world, zormod, work, AfterRowWrite::staysThere);
}

std::vector<std::string> heardOfKey(TestWorld& world, ZORMOD& zormod, const std::function<void()>& work) {
    return heard(world, zormod, work, AfterRowWrite::comesBack);
}
