#include "platform/keeper_protocol.h"

#include <gtest/gtest.h>

namespace {

const std::string twoMessages =
    framed({KeeperMessageKind::write, 7, 123456789, "文字"}) + framed({KeeperMessageKind::read, 8, -1, {}});

void expectBoth(KeeperMessageReader &reader) {
    const auto first = reader.next();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->kind, KeeperMessageKind::write);
    EXPECT_EQ(first->sequence, 7u);
    EXPECT_EQ(first->deadline, 123456789);
    EXPECT_EQ(first->payload, "文字");
    const auto second = reader.next();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->kind, KeeperMessageKind::read);
    EXPECT_EQ(second->sequence, 8u);
    EXPECT_EQ(second->deadline, -1);
    EXPECT_EQ(second->payload, "");
    EXPECT_FALSE(reader.next());
}

} // namespace

TEST(KeeperProtocol, MessagesComeOutOfOnePieceInTheirOrder) {
    KeeperMessageReader reader;
    reader.append(twoMessages);
    expectBoth(reader);
}

TEST(KeeperProtocol, MessagesComeOutOfSingleBytesToo) {
    KeeperMessageReader reader;
    for (const char byte : twoMessages)
        reader.append({&byte, 1});
    expectBoth(reader);
}

TEST(KeeperProtocol, AnIncompleteMessageIsNotHandedOut) {
    KeeperMessageReader reader;
    reader.append(framed({KeeperMessageKind::write, 7, 0, "文字"}).substr(0, 29));
    EXPECT_FALSE(reader.next());
    EXPECT_FALSE(reader.isBroken());
}

TEST(KeeperProtocol, NonsenseAndTooLongAPayloadBreakTheStream) {
    KeeperMessageReader nonsense;
    nonsense.append(std::string(64, 'x'));
    EXPECT_TRUE(nonsense.isBroken());
    EXPECT_FALSE(nonsense.next());

    std::string tooLong = framed({KeeperMessageKind::write, 7, 0, {}});
    const auto length = static_cast<std::uint32_t>(maxKeeperPayload + 1);
    tooLong.replace(4, sizeof length, reinterpret_cast<const char *>(&length), sizeof length);
    KeeperMessageReader reader;
    reader.append(tooLong);
    EXPECT_TRUE(reader.isBroken());
}
