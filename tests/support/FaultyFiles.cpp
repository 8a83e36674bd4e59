#include "tests/support/FaultyFiles.h"

namespace mrlxmlclass::testing {
namespace {

class FaultyOutputFile final : public OutputFile {
public:
    FaultyOutputFile(FaultyFiles& faults, std::unique_ptr<OutputFile> file) : faults_(faults), file_(std::move(file)) {}

    void WriteAt(std::uint64_t offset, std::string_view bytes) override {
        faults_.PassWrite([&] { file_->WriteAt(offset, bytes.substr(0, bytes.size() / 2)); });
        file_->WriteAt(offset, bytes);
    }
    void Cut(std::uint64_t length) override {
        faults_.Pass(FileCall::Cut);
        file_->Cut(length);
    }
    void Sync() override {
        faults_.Pass(FileCall::Sync);
        file_->Sync();
    }
    FileFacts Facts() override {
        faults_.Pass(FileCall::OpenFacts);
        return file_->Facts();
    }
    void Close() override {
        faults_.Pass(FileCall::Close);
        file_->Close();
    }

private:
    FaultyFiles& faults_;
    std::unique_ptr<OutputFile> file_;
};

}  // namespace

void FaultyFiles::FailAt(int nth, int number) {
    Plan({}, nth, number);
}
void FaultyFiles::FailAt(FileCall kind, int nth, int number) {
    Plan(kind, nth, number);
}

void FaultyFiles::Plan(std::optional<FileCall> kind, int nth, int number) {
    Heal();
    of_kind_ = {};
    all_ = 0;
    kind_ = kind;
    nth_ = nth;
    number_ = number;
}

void FaultyFiles::Heal() {
    nth_ = 0;
    keeps_failing_ = false;
    writes_short_ = false;
    failed_ = false;
}

bool FaultyFiles::Count(FileCall kind) {
    ++all_;
    const int of_this_kind = ++of_kind_[static_cast<std::size_t>(kind)];
    if (nth_ == 0) return false;
    const bool turn = kind_ ? kind == *kind_ && of_this_kind == nth_ : all_ == nth_;
    if (!turn && !(keeps_failing_ && failed_)) return false;
    failed_ = true;
    return true;
}

void FaultyFiles::Pass(FileCall kind) {
    if (Count(kind)) Raise(number_, "Planned failure");
}

FileFacts FaultyFiles::Facts(const String& path) {
    Pass(FileCall::Facts);
    return files_.Facts(path);
}

String FaultyFiles::Read(const String& path) {
    Pass(FileCall::Read);
    return files_.Read(path);
}

std::unique_ptr<OutputFile> FaultyFiles::Create(const String& path) {
    Pass(FileCall::Create);
    return std::make_unique<FaultyOutputFile>(*this, files_.Create(path));
}

std::unique_ptr<OutputFile> FaultyFiles::Open(const String& path) {
    Pass(FileCall::Open);
    return std::make_unique<FaultyOutputFile>(*this, files_.Open(path));
}

void FaultyFiles::Rename(const String& from, const String& to) {
    Pass(FileCall::Rename);
    files_.Rename(from, to);
}

void FaultyFiles::Delete(const String& path) {
    Pass(FileCall::Delete);
    files_.Delete(path);
}

void FaultyFiles::SetMode(const String& path, std::uint32_t mode) {
    Pass(FileCall::SetMode);
    files_.SetMode(path, mode);
}

void FaultyFiles::SetOwner(const String& path, const FileFacts& like) {
    Pass(FileCall::SetOwner);
    files_.SetOwner(path, like);
}

void FaultyFiles::SyncFolder(const String& folder) {
    Pass(FileCall::SyncFolder);
    files_.SyncFolder(folder);
}

void FaultyFiles::SetAttributes(const String& path, Integer value) {
    Pass(FileCall::SetAttributes);
    files_.SetAttributes(path, value);
}

Integer FaultyFiles::Hold(const String& path) {
    Pass(FileCall::Hold);
    return files_.Hold(path);
}

void FaultyFiles::Release(Integer number, const String& path) {
    Pass(FileCall::Release);
    files_.Release(number, path);
}

}  // namespace mrlxmlclass::testing
