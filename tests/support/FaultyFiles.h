#pragma once

#include <array>
#include <memory>
#include <optional>

#include "mrlxmlclass/platform/ForwardingFiles.h"

namespace mrlxmlclass::testing {

/// The calls that can fail.
enum class FileCall {
    Facts,
    Read,
    Create,
    Open,
    Rename,
    Delete,
    SetMode,
    SetOwner,
    SyncFolder,
    SetAttributes,
    Hold,
    Release,
    // of a file that is open
    WriteAt,
    Cut,
    Sync,
    OpenFacts,
    Close,
};

/// Counts the calls that can fail, and makes one of them fail: run an operation for n = 1, 2, ... until `Failed()`
/// stays false, and look at each n what it left behind.
///
///     for (int n = 1;; ++n) {
///         plat.faults.FailAt(n);
///         Save();
///         if (!plat.faults.Failed()) break;
///         EXPECT_EQ(plat.Read("a.prx"), before);
///     }
class FaultyFiles : public ForwardingFiles {
public:
    using ForwardingFiles::ForwardingFiles;

    /// From now on the n-th call (1-based) fails with that number, all others succeed.
    void FailAt(int nth, int number = failure::kDeviceFailure);
    /// The n-th call of that kind.
    void FailAt(FileCall kind, int nth, int number = failure::kDeviceFailure);
    /// Said after FailAt: every counted call from the n-th on fails.
    void KeepFailing() { keeps_failing_ = true; }
    /// Said after FailAt: a failing write brings its first half onto the disk before it fails.
    void WriteShort() { writes_short_ = true; }
    /// Nothing fails any more; the counts stay.
    void Heal();

    /// Whether a planned failure came.
    bool Failed() const { return failed_; }
    /// Calls since the last FailAt or the start.
    int Calls() const { return all_; }
    int Calls(FileCall kind) const { return of_kind_[static_cast<std::size_t>(kind)]; }

    /// Counts the call and raises when its turn to fail has come. The files that this opened call it too.
    void Pass(FileCall kind);
    /// The same for a write, of which `half()` may bring a part onto the disk.
    template <class Half>
    void PassWrite(Half&& half) {
        if (!Count(FileCall::WriteAt)) return;
        if (writes_short_) half();
        Raise(number_, "Planned failure");
    }

    FileFacts Facts(const String& path) override;
    String Read(const String& path) override;
    std::unique_ptr<OutputFile> Create(const String& path) override;
    std::unique_ptr<OutputFile> Open(const String& path) override;
    void Rename(const String& from, const String& to) override;
    void Delete(const String& path) override;
    void SetMode(const String& path, std::uint32_t mode) override;
    void SetOwner(const String& path, const FileFacts& like) override;
    void SyncFolder(const String& folder) override;
    void SetAttributes(const String& path, Integer value) override;
    Integer Hold(const String& path) override;
    void Release(Integer number, const String& path) override;

private:
    void Plan(std::optional<FileCall> kind, int nth, int number);
    bool Count(FileCall kind);  // true when this call fails

    static constexpr std::size_t kKinds = static_cast<std::size_t>(FileCall::Close) + 1;
    std::array<int, kKinds> of_kind_{};
    int all_ = 0;
    std::optional<FileCall> kind_;
    int nth_ = 0;  // 0 = none fails
    int number_ = failure::kDeviceFailure;
    bool keeps_failing_ = false;
    bool writes_short_ = false;
    bool failed_ = false;
};

}  // namespace mrlxmlclass::testing
