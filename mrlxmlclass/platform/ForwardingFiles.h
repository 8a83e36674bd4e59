#pragma once

#include "mrlxmlclass/platform/Files.h"

namespace mrlxmlclass {

/// Hands every call on to other files: the base for a host that puts something of its own in place of single calls.
class ForwardingFiles : public Files {
public:
    explicit ForwardingFiles(Files& files) : files_(files) {}

    FileFacts Facts(const String& path) override { return files_.Facts(path); }
    String Read(const String& path) override { return files_.Read(path); }
    std::unique_ptr<OutputFile> Create(const String& path) override { return files_.Create(path); }
    std::unique_ptr<OutputFile> Open(const String& path) override { return files_.Open(path); }
    void Rename(const String& from, const String& to) override { files_.Rename(from, to); }
    void Delete(const String& path) override { files_.Delete(path); }
    void SetMode(const String& path, std::uint32_t mode) override { files_.SetMode(path, mode); }
    void SetOwner(const String& path, const FileFacts& like) override { files_.SetOwner(path, like); }
    void SyncFolder(const String& folder) override { files_.SyncFolder(folder); }
    String Resolve(const String& path) override { return files_.Resolve(path); }
    Integer Attributes(const String& path) override { return files_.Attributes(path); }
    void SetAttributes(const String& path, Integer value) override { files_.SetAttributes(path, value); }
    FileUse Use(const String& path) override { return files_.Use(path); }
    Integer NextNumber() override { return files_.NextNumber(); }
    Integer Hold(const String& path) override { return files_.Hold(path); }
    void Release(Integer number, const String& path) override { files_.Release(number, path); }
    String ProgramFolder() override { return files_.ProgramFolder(); }
    String StateFolder() override { return files_.StateFolder(); }
    String SpecialFolder(Long number) override { return files_.SpecialFolder(number); }

protected:
    Files& files_;
};

}  // namespace mrlxmlclass
