#include "reader/wave_stream.h"

#include <gtest/gtest.h>

namespace {

const std::string sound = "0123456789abcdef";

} // namespace

TEST(WaveStream, ReadsWhatItWrites) {
    WaveReader reader;
    std::string samples;
    EXPECT_TRUE(reader.take(waveHead(48000, static_cast<std::uint32_t>(sound.size())) + sound + "tail", samples));
    EXPECT_EQ(samples, sound);
    EXPECT_EQ(reader.rate(), 48000U);
}

TEST(WaveStream, AnyCutOfTheStreamGivesTheSameSamples) {
    const std::string file = waveHead(22050, static_cast<std::uint32_t>(sound.size())) + sound;
    for (std::size_t cut = 0; cut <= file.size(); ++cut) {
        WaveReader reader;
        std::string samples;
        EXPECT_TRUE(reader.take(std::string_view(file).substr(0, cut), samples));
        EXPECT_TRUE(reader.take(std::string_view(file).substr(cut), samples));
        EXPECT_EQ(samples, sound) << cut;
    }
}

TEST(WaveStream, OtherChunksArePassedOver) {
    std::string file = waveHead(22050, 4) + "wxyz";
    file.insert(12, std::string("LIST\x03\0\0\0abc\0", 12));
    WaveReader reader;
    std::string samples;
    EXPECT_TRUE(reader.take(file, samples));
    EXPECT_EQ(samples, "wxyz");
}

TEST(WaveStream, WhatIsNoWaveFileIsRefused) {
    std::string stereo = waveHead(22050, 4) + "wxyz";
    stereo[22] = 2;
    for (const std::string& file : {std::string("error: no voice"), std::string("RIFF0000AVI fmt "), stereo}) {
        WaveReader reader;
        std::string samples;
        EXPECT_FALSE(reader.take(file, samples)) << file;
        EXPECT_EQ(samples, "");
        EXPECT_EQ(reader.rate(), 0U);
    }
}

TEST(WaveStream, AHeadWithoutEndIsRefused) {
    WaveReader reader;
    std::string samples;
    const std::string chunk = std::string("JUNK\xF8\x03\0\0", 8) + std::string(1016, ' ');
    bool isAccepted = reader.take("RIFF0000WAVE", samples);
    for (int i = 0; i < 8 && isAccepted; ++i)
        isAccepted = reader.take(chunk, samples);
    EXPECT_FALSE(isAccepted);
}
