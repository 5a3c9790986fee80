// make-pdb: makes a PDB for a DLL that was linked with DWARF debug information, with LLVM's
// library.
//
// Usage: make-pdb IMAGE PDB
//   IMAGE   the DLL before its debug information is removed; its RSDS record names GUID and age
#include <llvm/Object/COFF.h>
#include <llvm/Object/ObjectFile.h>
#include <llvm/Support/Casting.h>
#include <llvm/Support/Error.h>

#include <cstdio>

#include "tools/make-pdb/ImageFunctions.h"
#include "tools/make-pdb/PdbFile.h"

namespace {

llvm::Error MakePdb(const char* imagePath, const char* pdbPath) {
    auto file = llvm::object::ObjectFile::createObjectFile(imagePath);
    if (!file) return file.takeError();
    const auto* image = llvm::dyn_cast<llvm::object::COFFObjectFile>(file->getBinary());
    if (image == nullptr) {
        return llvm::createStringError(llvm::inconvertibleErrorCode(), "the image is no DLL");
    }
    return WritePdb(pdbPath, *image, ReadFunctions(*image));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: make-pdb IMAGE PDB\n");
        return 2;
    }
    if (auto error = MakePdb(argv[1], argv[2])) {
        std::fprintf(stderr, "make-pdb: %s\n", llvm::toString(std::move(error)).c_str());
        return 1;
    }
    return 0;
}
