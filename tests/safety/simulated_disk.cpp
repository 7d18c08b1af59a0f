#include "safety/simulated_disk.h"

#include <algorithm>
#include <utility>

namespace {

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

bool heads(std::mt19937& random) { return (random() & 1U) != 0; }

} // namespace

SimulatedDisk::SimulatedDisk(const FolderImage& start, const CallWatch& watch) {
    for (const auto& [path, bytes] : start) {
        const int number = watch.numberOf(path);
        names_[path] = number;
        files_[number] = {bytes, bytes};
    }
    durableNames_ = names_;
}

void SimulatedDisk::goOnUnder(const CallWatch& watch) {
    std::map<int, int> numbers;
    for (const auto& [path, file] : names_) {
        numbers[file] = watch.numberOf(path);
    }
    // What has no name any more but may get one back by a power cut.
    int unnamed = 0;
    for (const auto& [file, contents] : files_) {
        unnamed = std::min(unnamed, file);
    }
    std::map<int, Contents> files;
    for (auto& [file, contents] : files_) {
        const auto known = numbers.find(file);
        const int number = known == numbers.end() ? (numbers[file] = --unnamed) : known->second;
        files[number] = std::move(contents);
    }
    files_ = std::move(files);
    for (Names* const names : {&names_, &durableNames_}) {
        for (auto& [path, file] : *names) {
            file = numbers.at(file);
        }
    }
    for (NameChange& waiting : unsynced_) {
        waiting.file = waiting.added.empty() ? 0 : numbers.at(waiting.file);
    }
}

void SimulatedDisk::apply(const DiskStep& step) {
    using Kind = DiskStep::Kind;
    switch (step.kind) {
    case Kind::create:
        files_[step.file] = {};
        change({folderOf(step.path), {}, step.path, step.file});
        break;
    case Kind::write: {
        std::string& bytes = files_[step.file].current;
        const auto offset = static_cast<std::size_t>(step.offset);
        bytes.resize(std::max(bytes.size(), offset + step.bytes.size()), '\0');
        bytes.replace(offset, step.bytes.size(), step.bytes);
        break;
    }
    case Kind::setLength:
        files_[step.file].current.resize(static_cast<std::size_t>(step.offset), '\0');
        break;
    case Kind::syncFile:
        files_[step.file].durable = files_[step.file].current;
        break;
    case Kind::syncFolder:
        std::erase_if(unsynced_, [&](const NameChange& waiting) {
            if (waiting.folder != step.path) {
                return false;
            }
            carryOut(waiting, durableNames_);
            return true;
        });
        break;
    case Kind::rename:
        change({folderOf(step.target), step.path, step.target, names_.at(step.path)});
        break;
    case Kind::unlink:
        change({folderOf(step.path), step.path, {}, 0});
        break;
    case Kind::syncFailed:
    case Kind::makeFolder:
        break; // only files are compared
    }
}

void SimulatedDisk::change(const NameChange& change) {
    carryOut(change, names_);
    unsynced_.push_back(change);
}

void SimulatedDisk::carryOut(const NameChange& change, Names& names) {
    if (!change.removed.empty()) {
        names.erase(change.removed);
    }
    if (!change.added.empty()) {
        names[change.added] = change.file;
    }
}

FolderImage SimulatedDisk::afterKill() const {
    FolderImage image;
    for (const auto& [path, file] : names_) {
        image[path] = files_.at(file).current;
    }
    return image;
}

FolderImage SimulatedDisk::afterPowerCut(Loss loss, std::size_t sectorLength, std::mt19937& random) const {
    Names names = durableNames_;
    std::map<std::string, bool> isCutOff; // per folder: an earlier change was lost
    for (const NameChange& waiting : unsynced_) {
        bool& lost = isCutOff[waiting.folder];
        lost = lost || loss == Loss::everything || loss == Loss::names || (loss == Loss::random && heads(random));
        if (!lost) {
            carryOut(waiting, names);
        }
    }
    FolderImage image;
    for (const auto& [path, file] : names) {
        const Contents& contents = files_.at(file);
        image[path] = loss == Loss::names    ? contents.current
                      : loss == Loss::random ? torn(contents, sectorLength, random)
                                             : contents.durable;
    }
    return image;
}

std::string SimulatedDisk::torn(const Contents& contents, std::size_t sectorLength, std::mt19937& random) {
    const auto& [durable, current] = contents;
    if (durable == current) {
        return current;
    }
    // A file grows on the disk by what has been written, never ahead of it.
    const std::size_t most = (std::max(current.size(), durable.size()) + sectorLength - 1) / sectorLength;
    std::size_t length = current.size();
    if (current.size() != durable.size() && heads(random)) {
        length = std::clamp((random() % (most + 1)) * sectorLength, std::min(current.size(), durable.size()),
                            std::max(current.size(), durable.size()));
    }
    std::string bytes = current.size() > durable.size() ? current : durable;
    bytes.resize(length);
    for (std::size_t at = 0; at < std::min({bytes.size(), durable.size(), current.size()}); at += sectorLength) {
        const std::string& from = heads(random) ? current : durable;
        const std::size_t end = std::min({at + sectorLength, bytes.size(), from.size()});
        bytes.replace(at, end - at, from, at, end - at);
    }
    return bytes;
}
