#pragma once
// Wave files: taking the samples out of one while it still arrives, and the head of one that is written. Known is what
// engines give: 16-bit samples of one channel. Used by the wave engine and by the file output.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Reads one wave file piece by piece.
class WaveReader {
public:
    /// Takes the next bytes of the file; the samples in them are appended to `samples`. False if this is no wave file
    /// of the known kind.
    bool take(std::string_view bytes, std::string& samples);
    /// Samples a second; 0 until the head has been read.
    std::uint32_t rate() const { return inSamples_ ? rate_ : 0; }

private:
    bool readChunks();

    std::string head_;
    bool inSamples_ = false;
    std::uint32_t rate_ = 0;
    std::uint64_t left_ = 0; ///< bytes of samples still to come, by the word of the head
};

/// The 44 bytes that come before `bytes` bytes of samples.
std::string waveHead(std::uint32_t rate, std::uint32_t bytes);
