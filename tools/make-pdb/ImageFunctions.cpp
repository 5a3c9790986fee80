#include "tools/make-pdb/ImageFunctions.h"

#include <llvm/BinaryFormat/COFF.h>
#include <llvm/DebugInfo/DWARF/DWARFContext.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

using llvm::object::coff_section;
using llvm::object::COFFObjectFile;
using llvm::object::COFFSymbolRef;

bool IsFunction(const COFFSymbolRef& symbol) {
    return symbol.getComplexType() == llvm::COFF::IMAGE_SYM_DTYPE_FUNCTION &&
           symbol.getSectionNumber() > 0;
}

// The linker's own symbols and some of the runtime's have no type, so that code counts as well.
bool IsInCode(const COFFObjectFile& image, const COFFSymbolRef& symbol) {
    if (symbol.getSectionNumber() <= 0) return false;
    const auto* section = llvm::cantFail(image.getSection(symbol.getSectionNumber()));
    return (section->Characteristics & llvm::COFF::IMAGE_SCN_CNT_CODE) != 0;
}

std::vector<ImageFunction> FunctionsOfSymbolTable(const COFFObjectFile& image) {
    std::vector<ImageFunction> functions;
    for (const auto& reference : image.symbols()) {
        const auto symbol = image.getCOFFSymbol(reference);
        if (!IsInCode(image, symbol) || (!IsFunction(symbol) && !symbol.isExternal())) continue;
        const auto name = llvm::cantFail(image.getSymbolName(symbol));
        if (name.startswith(".")) continue;
        ImageFunction function;
        function.name = name.str();
        function.isGlobal = symbol.isExternal();
        function.section = static_cast<uint16_t>(symbol.getSectionNumber());
        function.offset = symbol.getValue();
        functions.push_back(std::move(function));
    }
    return functions;
}

// Sorts by address; of several names for one address the first by name remains.
void SortByAddress(std::vector<ImageFunction>& functions) {
    const auto address = [](const ImageFunction& function) {
        return std::make_pair(function.section, function.offset);
    };
    std::sort(functions.begin(), functions.end(), [&](const auto& left, const auto& right) {
        return std::make_pair(address(left), left.name) <
               std::make_pair(address(right), right.name);
    });
    const auto end = std::unique(
        functions.begin(), functions.end(),
        [&](const auto& left, const auto& right) { return address(left) == address(right); });
    functions.erase(end, functions.end());
}

// A function's size is the distance to the next one, or to the end of its section.
void SetSizes(const COFFObjectFile& image, std::vector<ImageFunction>& functions) {
    for (size_t i = 0; i < functions.size(); ++i) {
        const bool isLast =
            i + 1 == functions.size() || functions[i + 1].section != functions[i].section;
        const auto* section = llvm::cantFail(image.getSection(functions[i].section));
        const uint32_t end =
            isLast ? static_cast<uint32_t>(section->VirtualSize) : functions[i + 1].offset;
        functions[i].size = end - functions[i].offset;
    }
}

// Code that was inlined into the function counts for the line that calls it, so that all lines are
// of the function itself.
void ReadLines(const COFFObjectFile& image, llvm::DWARFContext& dwarf, ImageFunction& function) {
    const auto* section = llvm::cantFail(image.getSection(function.section));
    const uint64_t start = image.getImageBase() + section->VirtualAddress + function.offset;
    const llvm::DILineInfoSpecifier specifier(
        llvm::DILineInfoSpecifier::FileLineInfoKind::RelativeFilePath);
    const auto at = [](uint64_t address) {
        return llvm::object::SectionedAddress{address,
                                              llvm::object::SectionedAddress::UndefSection};
    };
    for (const auto& row : dwarf.getLineInfoForAddressRange(at(start), function.size, specifier)) {
        const auto frames = dwarf.getInliningInfoForAddress(at(row.first), specifier);
        if (frames.getNumberOfFrames() == 0) continue;
        const auto& outermost = frames.getFrame(frames.getNumberOfFrames() - 1);
        if (outermost.Line == 0) continue;
        const FunctionLine line{static_cast<uint32_t>(row.first - start), outermost.Line,
                                outermost.FileName};
        if (function.lines.empty() || function.lines.back().line != line.line ||
            function.lines.back().file != line.file) {
            function.lines.push_back(line);
        }
    }
}

}  // namespace

std::vector<ImageFunction> ReadFunctions(const COFFObjectFile& image) {
    auto functions = FunctionsOfSymbolTable(image);
    SortByAddress(functions);
    SetSizes(image, functions);
    const auto dwarf = llvm::DWARFContext::create(image);
    for (auto& function : functions) ReadLines(image, *dwarf, function);
    return functions;
}
