#include "prx/Content.h"

#include "mrlxmlclass/platform/ForwardingFiles.h"
#include "mrlxmlclass/platform/Services.h"
#include "prx/Project.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

constexpr const char* kPath = "/in memory.prx";

/// One file that lives here; all others are the system's.
class OneFileInMemory : public ForwardingFiles {
public:
    using ForwardingFiles::ForwardingFiles;

    String content;

    FileFacts Facts(const String& path) override { return path == kPath ? OwnFacts() : ForwardingFiles::Facts(path); }
    String Read(const String& path) override { return path == kPath ? content : ForwardingFiles::Read(path); }
    std::unique_ptr<OutputFile> Create(const String& path) override {
        if (path != kPath) return ForwardingFiles::Create(path);
        content.clear();
        exists_ = true;
        return std::make_unique<Output>(*this);
    }
    std::unique_ptr<OutputFile> Open(const String& path) override {
        if (path != kPath) return ForwardingFiles::Open(path);
        return std::make_unique<Output>(*this);
    }

private:
    class Output : public OutputFile {
    public:
        explicit Output(OneFileInMemory& file) : file_(file) {}
        void WriteAt(std::uint64_t offset, std::string_view bytes) override {
            String& content = file_.content;
            const auto from = static_cast<std::size_t>(offset);
            if (content.size() < from + bytes.size()) content.resize(from + bytes.size());
            content.replace(from, bytes.size(), bytes);
            ++file_.changes_;
        }
        void Cut(std::uint64_t length) override {
            file_.content.resize(static_cast<std::size_t>(length));
            ++file_.changes_;
        }
        void Sync() override {}
        FileFacts Facts() override { return file_.OwnFacts(); }
        void Close() override {}

    private:
        OneFileInMemory& file_;
    };

    FileFacts OwnFacts() const {
        FileFacts facts;
        facts.exists = exists_;
        facts.writable = exists_;
        facts.size = content.size();
        facts.changed_ns = changes_;
        return facts;
    }

    bool exists_ = false;
    std::int64_t changes_ = 0;
};

}  // namespace

std::string ContentOf(const Project& project) {
    Services& host = Platform();
    OneFileInMemory files(host.files);
    Services services{host.clock,        host.locale,      files, host.shell, host.ui, host.old_plans,
                      host.task_screens, host.help_systems};
    const InstalledServices installed(services);
    project.app().xFileName(kPath);
    project.app().SaveXml(/*p_persit=*/False);
    project.app().xFileName(project.path());
    return files.content;
}

}  // namespace prx
