#pragma once

#include <llvm/Object/COFF.h>
#include <llvm/Support/Error.h>

#include <string>
#include <vector>

#include "tools/make-pdb/ImageFunctions.h"

// Writes a PDB of these functions to `path`. Its GUID, age and signature are those in `image`, by
// which debuggers recognise it.
llvm::Error WritePdb(const std::string& path, const llvm::object::COFFObjectFile& image,
                     const std::vector<ImageFunction>& functions);
