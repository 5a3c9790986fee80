#pragma once

#include <llvm/ADT/ArrayRef.h>
#include <llvm/Object/COFF.h>

#include <cstdint>
#include <string>
#include <vector>

// A row of the line table, with its distance from the function's first byte.
struct FunctionLine {
    uint32_t offset = 0;
    uint32_t line = 0;
    std::string file;
};

// A function of the image, with the compiler's name for it.
struct ImageFunction {
    std::string name;
    bool isGlobal = false;
    uint16_t section = 0;  // counted from 1
    uint32_t offset = 0;   // from the section's first byte
    uint32_t size = 0;     // up to the next function
    std::vector<FunctionLine> lines;
};

// Returns the functions in the symbol table of `image` in the order of their addresses, with their
// lines from its DWARF sections.
std::vector<ImageFunction> ReadFunctions(const llvm::object::COFFObjectFile& image);
