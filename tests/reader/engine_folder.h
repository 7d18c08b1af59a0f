#pragma once
// A folder of programs that play engines, in front of the real ones on the search path, and a log to look at. Used by
// the tests that run real child processes.

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// Lives as long as its test; the search path is as before afterwards.
class EngineFolder {
public:
    EngineFolder() : oldPath_(std::getenv("PATH")) {
        std::string pattern = (std::filesystem::temp_directory_path() / "romika-engines-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
        setenv("PATH", (path_ + ":" + oldPath_).c_str(), 1);
        // As in the reading program itself: a player that is gone must show as a failed write.
        std::signal(SIGPIPE, SIG_IGN);
    }
    ~EngineFolder() {
        setenv("PATH", oldPath_.c_str(), 1);
        std::filesystem::remove_all(path_);
    }
    EngineFolder(const EngineFolder&) = delete;
    EngineFolder& operator=(const EngineFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string file(const std::string& name) const { return path_ + "/" + name; }
    /// Puts a program into the folder: a script of the system's shell.
    void add(const std::string& name, const std::string& script) const {
        std::ofstream(file(name)) << "#!/bin/sh\n" << script << "\n";
        std::filesystem::permissions(file(name), std::filesystem::perms::owner_all);
    }
    /// Where the real program of that name lies.
    static std::string real(const std::string& name) { return "/usr/bin/" + name; }

    std::string read(const std::string& name) const {
        std::ifstream in(file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    /// The texts of the log's lines that begin with `event`, oldest first.
    std::vector<std::string> events(const std::string& event) const {
        std::ifstream in(file("log"));
        std::vector<std::string> found;
        for (std::string line; std::getline(in, line);) {
            if (line.starts_with(event + "\t"))
                found.push_back(line.substr(event.size() + 1));
        }
        return found;
    }
    /// The first words of the log's lines.
    std::vector<std::string> eventNames() const {
        std::ifstream in(file("log"));
        std::vector<std::string> found;
        for (std::string line; std::getline(in, line);)
            found.push_back(line.substr(0, line.find('\t')));
        return found;
    }

private:
    std::string oldPath_;
    std::string path_;
};
