// The DLL's size, and how long loading it takes, beside one whose exports do nothing.
#include <windows.h>

#include <cstdio>
#include <filesystem>

#include "bench/Stopwatch.h"
#include "bench/Table.h"
#include "tests/acceptance/AgentDll.h"

namespace {

using namespace bench;

Samples LoadOnce(const std::filesystem::path& file) {
    Samples samples;
    HMODULE module = nullptr;
    samples.Add(Timed([&] { module = LoadLibraryW(file.c_str()); }));
    FreeLibrary(module);
    return samples;
}

std::string Kilobytes(const std::filesystem::path& file) {
    return Number(static_cast<double>(std::filesystem::file_size(file)) / 1024, 0) + " KiB";
}

}  // namespace

int main() {
    const std::filesystem::path agent = acceptance::ProgramFolder() / "VelaAgent.dll";
    const std::filesystem::path empty = acceptance::ProgramFolder() / "bench_empty.dll";
    LoadOnce(empty);
    const Pair pair = TakeTurns(
        200, [&] { return LoadOnce(agent); }, [&] { return LoadOnce(empty); });
    Print(
        {"size of the DLL", Kilobytes(agent), "30 empty exports: " + Kilobytes(empty), "", "", {}});
    PrintMedians("Wine: loading the DLL", "30 empty exports", pair, {});
}
