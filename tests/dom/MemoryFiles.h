#pragma once

#include <map>
#include <optional>

#include "mrlxmlclass/platform/Services.h"
#include "tests/support/FaultyFiles.h"

namespace mrlxmlclass::dom {

/// Files that live in memory. They count what is written and fail where they are told to.
class MemoryFiles : public ForwardingFiles {
public:
    MemoryFiles() : ForwardingFiles(SystemServices().files) {}

    struct File {
        String bytes;
        FileFacts facts;
    };

    std::map<String, File> files;
    std::size_t written = 0;             ///< bytes, in all
    int created = 0;                     ///< files opened empty
    int opened = 0;                      ///< files opened as they stood
    std::optional<std::size_t> room;     ///< how many more bytes may be written
    std::optional<int> refused_reading;  ///< reading fails with this
    std::optional<int> refused_closing;  ///< closing fails with this

    /// What another program would do.
    void Put(const String& path, const String& bytes) {
        File& file = files[path];
        file.bytes = bytes;
        file.facts.exists = true;
        file.facts.mode = 0644;
        file.facts.writable = true;
        if (file.facts.number == 0) file.facts.number = ++numbers_;
        Touched(file);
    }
    void PutFolder(const String& path) {
        Put(path, "");
        files[path].facts.folder = true;
    }
    const String& At(const String& path) { return files.at(path).bytes; }

    FileFacts Facts(const String& path) override {
        const auto found = files.find(path);
        return found == files.end() ? FileFacts{} : found->second.facts;
    }
    String Read(const String& path) override {
        if (refused_reading) Raise(*refused_reading);
        return files.at(path).bytes;
    }
    std::unique_ptr<OutputFile> Create(const String& path) override {
        if (path.empty()) Raise(failure::kPathAccess);
        if (!Facts(path).exists) Put(path, "");
        auto file = Opened(path);
        files[path].bytes.clear();
        Touched(files[path]);
        ++created;
        return file;
    }
    std::unique_ptr<OutputFile> Open(const String& path) override {
        auto file = Opened(path);
        ++opened;
        return file;
    }

    void Rename(const String& from, const String& to) override { files[to] = files.at(from); }
    void Delete(const String& path) override { files.erase(path); }
    void SetMode(const String& path, std::uint32_t mode) override {
        files.at(path).facts.mode = mode;
        files.at(path).facts.writable = (mode & 0222U) != 0;
    }
    void SetOwner(const String& path, const FileFacts& like) override {
        files.at(path).facts.owner = like.owner;
        files.at(path).facts.group = like.group;
    }

private:
    class Output : public OutputFile {
    public:
        Output(MemoryFiles& all, File& file) : all_(all), file_(file) {}
        void WriteAt(std::uint64_t offset, std::string_view bytes) override {
            // A file that grows takes room; a byte that stands already is written over for nothing.
            const std::size_t end = offset + bytes.size();
            const std::size_t growth = end > file_.bytes.size() ? end - file_.bytes.size() : 0;
            const bool full = all_.room && growth > *all_.room;
            if (full) bytes.remove_suffix(growth - *all_.room);
            if (all_.room) *all_.room -= full ? *all_.room : growth;
            if (file_.bytes.size() < offset + bytes.size()) file_.bytes.resize(offset + bytes.size());
            file_.bytes.replace(offset, bytes.size(), bytes);
            all_.written += bytes.size();
            all_.Touched(file_);
            if (full) Raise(failure::kDeviceFailure);
        }
        void Cut(std::uint64_t length) override {
            file_.bytes.resize(length);
            all_.Touched(file_);
        }
        void Sync() override {}
        FileFacts Facts() override { return file_.facts; }
        void Close() override {
            if (all_.refused_closing) Raise(*all_.refused_closing);
        }

    private:
        MemoryFiles& all_;
        File& file_;
    };

    std::unique_ptr<OutputFile> Opened(const String& path) {
        if (!Facts(path).exists) Raise(failure::kFileNotFound);
        if (Facts(path).folder) Raise(failure::kPathAccess);
        if (!Facts(path).writable) Raise(failure::kPermissionDenied);
        return std::make_unique<Output>(*this, files.at(path));
    }
    void Touched(File& file) {
        file.facts.size = file.bytes.size();
        file.facts.changed_ns = ++time_;
    }

    std::int64_t time_ = 0;
    std::uint64_t numbers_ = 0;
};

/// Puts memory in the place of the disk while it lives.
struct MemoryDisk : MemoryFiles {
    Services services{SystemServices().clock, SystemServices().locale, *this, SystemServices().shell,
                      SystemServices().ui};
    InstalledServices installed{services};
};

}  // namespace mrlxmlclass::dom
