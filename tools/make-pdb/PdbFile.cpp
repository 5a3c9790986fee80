#include "tools/make-pdb/PdbFile.h"

#include <llvm/DebugInfo/CodeView/DebugChecksumsSubsection.h>
#include <llvm/DebugInfo/CodeView/DebugLinesSubsection.h>
#include <llvm/DebugInfo/CodeView/DebugStringTableSubsection.h>
#include <llvm/DebugInfo/CodeView/SymbolSerializer.h>
#include <llvm/DebugInfo/MSF/MSFBuilder.h>
#include <llvm/DebugInfo/PDB/Native/DbiModuleDescriptorBuilder.h>
#include <llvm/DebugInfo/PDB/Native/DbiStreamBuilder.h>
#include <llvm/DebugInfo/PDB/Native/GSIStreamBuilder.h>
#include <llvm/DebugInfo/PDB/Native/InfoStreamBuilder.h>
#include <llvm/DebugInfo/PDB/Native/PDBFileBuilder.h>
#include <llvm/DebugInfo/PDB/Native/PDBStringTableBuilder.h>
#include <llvm/DebugInfo/PDB/Native/TpiStreamBuilder.h>
#include <llvm/Demangle/Demangle.h>
#include <llvm/Support/Allocator.h>

#include <cstring>
#include <memory>
#include <set>
#include <utility>

namespace {

namespace codeview = llvm::codeview;
namespace pdb = llvm::pdb;

constexpr uint32_t kBlockSize = 4096;

// Fills a PDB with one module, in which all functions are.
class PdbFile {
 public:
    explicit PdbFile(const llvm::object::COFFObjectFile& image)
        : image_(image), builder_(storage_) {}

    llvm::Error Write(const std::string& path, const std::vector<ImageFunction>& functions) {
        if (auto error = builder_.initialize(kBlockSize)) return error;
        for (uint32_t i = 0; i < pdb::kSpecialStreamCount; ++i) {
            if (auto stream = builder_.getMsfBuilder().addStream(0); !stream)
                return stream.takeError();
        }
        if (auto error = DescribeImage()) return error;
        auto module = builder_.getDbiBuilder().addModuleInfo("VelaAgent");
        if (!module) return module.takeError();
        if (auto error = AddFunctions(*module, functions)) return error;
        AddPublicNames(functions);
        return builder_.commit(path, &guid_);
    }

 private:
    llvm::Error DescribeImage() {
        const codeview::DebugInfo* record = nullptr;
        llvm::StringRef pdbName;
        if (auto error = image_.getDebugPDBInfo(record, pdbName)) return error;
        if (record == nullptr) {
            return llvm::createStringError(llvm::inconvertibleErrorCode(),
                                           "the image has no RSDS record");
        }
        std::memcpy(guid_.Guid, record->PDB70.Signature, sizeof(guid_.Guid));

        auto& info = builder_.getInfoBuilder();
        info.setVersion(pdb::PdbRaw_ImplVer::PdbImplVC70);
        info.addFeature(pdb::PdbRaw_FeatureSig::VC140);
        info.setGuid(guid_);
        info.setAge(record->PDB70.Age);
        info.setSignature(image_.getTimeDateStamp());
        auto& dbi = builder_.getDbiBuilder();
        dbi.setVersionHeader(pdb::PdbDbiV70);
        dbi.setAge(record->PDB70.Age);
        dbi.setMachineType(static_cast<llvm::COFF::MachineTypes>(image_.getMachine()));
        dbi.setBuildNumber(14, 11);
        builder_.getTpiBuilder().setVersionHeader(pdb::PdbTpiV80);
        builder_.getIpiBuilder().setVersionHeader(pdb::PdbTpiV80);
        return DescribeSections();
    }

    llvm::Error DescribeSections() {
        std::vector<llvm::object::coff_section> sections;
        for (const auto& section : image_.sections())
            sections.push_back(*image_.getCOFFSection(section));
        auto& dbi = builder_.getDbiBuilder();
        dbi.createSectionMap(sections);
        const auto* bytes = reinterpret_cast<const uint8_t*>(sections.data());
        sectionHeaders_.assign(bytes, bytes + sections.size() * sizeof(sections.front()));
        return dbi.addDbgStream(pdb::DbgHeaderType::SectionHdr, sectionHeaders_);
    }

    llvm::Error AddFunctions(pdb::DbiModuleDescriptorBuilder& module,
                             const std::vector<ImageFunction>& functions) {
        const auto strings = std::make_shared<codeview::DebugStringTableSubsection>();
        const auto files = std::make_shared<codeview::DebugChecksumsSubsection>(*strings);
        module.addDebugSubsection(files);
        std::string lastFile;
        for (const auto& function : functions) {
            AddFunction(module, function);
            AddContribution(module, function);
            if (function.lines.empty()) continue;
            const auto lines = std::make_shared<codeview::DebugLinesSubsection>(*files, *strings);
            lines->setRelocationAddress(function.section, function.offset);
            lines->setCodeSize(function.size);
            lastFile.clear();
            for (const auto& line : function.lines) {
                if (line.file != lastFile) {
                    if (auto error = AddFile(module, *files, line.file)) return error;
                    lines->createBlock(line.file);
                    lastFile = line.file;
                }
                lines->addLineInfo(line.offset, codeview::LineInfo(line.line, line.line, true));
            }
            module.addDebugSubsection(lines);
        }
        builder_.getStringTableBuilder().setStrings(*strings);
        return llvm::Error::success();
    }

    llvm::Error AddFile(pdb::DbiModuleDescriptorBuilder& module,
                        codeview::DebugChecksumsSubsection& files, const std::string& file) {
        if (!knownFiles_.insert(file).second) return llvm::Error::success();
        files.addChecksum(file, codeview::FileChecksumKind::None, {});
        return builder_.getDbiBuilder().addModuleSourceFile(module, file);
    }

    void AddFunction(pdb::DbiModuleDescriptorBuilder& module, const ImageFunction& function) {
        const auto name = llvm::demangle(function.name);
        const auto start = module.getNextSymbolOffset();
        codeview::ProcSym symbol(function.isGlobal ? codeview::SymbolRecordKind::GlobalProcSym
                                                   : codeview::SymbolRecordKind::ProcSym);
        symbol.CodeSize = function.size;
        symbol.DbgEnd = function.size;
        symbol.CodeOffset = function.offset;
        symbol.Segment = function.section;
        symbol.Name = name;
        const auto record = [&] {
            return codeview::SymbolSerializer::writeOneSymbol(symbol, storage_,
                                                              codeview::CodeViewContainer::Pdb);
        };
        // The record has the offset of the one that ends it, which comes right behind.
        symbol.End = start + static_cast<uint32_t>(record().length());
        module.addSymbol(record());
        codeview::ScopeEndSym end(codeview::SymbolRecordKind::ScopeEndSym);
        module.addSymbol(codeview::SymbolSerializer::writeOneSymbol(
            end, storage_, codeview::CodeViewContainer::Pdb));

        codeview::ProcRefSym reference(codeview::SymbolRecordKind::ProcRefSym);
        reference.Module = static_cast<uint16_t>(module.getModuleIndex() + 1);
        reference.SymOffset = start;
        reference.Name = name;
        builder_.getGsiBuilder().addGlobalSymbol(reference);
    }

    void AddContribution(pdb::DbiModuleDescriptorBuilder& module, const ImageFunction& function) {
        pdb::SectionContrib contribution{};
        contribution.ISect = function.section;
        contribution.Off = static_cast<int32_t>(function.offset);
        contribution.Size = static_cast<int32_t>(function.size);
        contribution.Imod = static_cast<uint16_t>(module.getModuleIndex());
        contribution.Characteristics =
            llvm::cantFail(image_.getSection(function.section))->Characteristics;
        if (!hasContribution_) module.setFirstSectionContrib(contribution);
        hasContribution_ = true;
        builder_.getDbiBuilder().addSectionContrib(contribution);
    }

    void AddPublicNames(const std::vector<ImageFunction>& functions) {
        std::vector<pdb::BulkPublic> names;
        for (const auto& function : functions) {
            pdb::BulkPublic name;
            name.Name = function.name.c_str();
            name.NameLen = static_cast<uint32_t>(function.name.size());
            name.Segment = function.section;
            name.Offset = function.offset;
            name.setFlags(codeview::PublicSymFlags::Function);
            names.push_back(name);
        }
        builder_.getGsiBuilder().addPublicSymbols(std::move(names));
    }

    const llvm::object::COFFObjectFile& image_;
    llvm::BumpPtrAllocator storage_;
    pdb::PDBFileBuilder builder_;
    codeview::GUID guid_{};
    std::vector<uint8_t> sectionHeaders_;
    std::set<std::string> knownFiles_;
    bool hasContribution_ = false;
};

}  // namespace

llvm::Error WritePdb(const std::string& path, const llvm::object::COFFObjectFile& image,
                     const std::vector<ImageFunction>& functions) {
    return PdbFile(image).Write(path, functions);
}
