// An example program in a process of its own, with pipes for its input and output.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace guide {

class Program {
 public:
    // Throws std::runtime_error when the program cannot be started.
    explicit Program(const std::filesystem::path& file, const std::wstring& arguments = L"");
    // Ends the process if it is still running.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Types the line, and presses enter.
    void Type(const std::string& line) const;
    // Returns the program's output up to and including `last`, or up to its end.
    std::string Output(const std::string& last = "\1");
    // Waits for the end of the process.
    DWORD ExitCode() const;

 private:
    HANDLE process_ = nullptr;
    HANDLE input_ = nullptr;
    HANDLE output_ = nullptr;
    std::string text_;
};

}  // namespace guide
