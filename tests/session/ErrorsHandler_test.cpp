#include "mrlxmlclass/session/ErrorsHandler.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/xml/Section.h"
#include "tests/support/HeldByHost.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;

constexpr FailureTail kTail{"SomeCls"};
constexpr const char* kErrorFile = "SendToSupport.xml";

class Listener : public ErrorsHandlerEvents {
public:
    void RaiseErrors(const String& ClassSource, const String& FunctionSource) override {
        heard += ClassSource + " " + FunctionSource + "\n";
        if (on_error) on_error();
    }

    String heard;
    std::function<void()> on_error;
};

class ErrorsHandlerTest : public ::testing::Test {
protected:
    ErrorsHandlerTest() { handler->Events.Add(listener); }

    static Boolean Record(const Ref<ErrorsHandler>& on) { return on->GetErrors("It broke", "13", "SomeCls", "Some"); }
    void Fail(const char* member = "Some") {
        kTail.Run(member, [] { Raise(failure::kTypeMismatch, "It broke"); });
    }
    ErrorEntry Last() { return handler->Log()->Error_Col()->Item(handler->Log()->Error_Col()->Count()); }
    dom::Node ErrorsInFile() {
        file = DocumentOfFile(session.Path(kErrorFile));
        EXPECT_EQ(file->error_text(), "");
        return file->documentElement();
    }

    TestSession session;
    Listener listener;
    Ref<ErrorsHandler> handler = Module().g_ErrorsHandler;
    Ref<dom::Document> file;
};

TEST_F(ErrorsHandlerTest, WritesToSendToSupportInTheProgramsFolderAtFirst) {
    EXPECT_EQ(handler->ErrFileName(), session.folder.path() + "/SendToSupport.xml");
    EXPECT_EQ(handler->RaisedBy(), "");
}

TEST_F(ErrorsHandlerTest, RecordsTheFiveTexts) {
    EXPECT_EQ(Record(handler), True);
    EXPECT_EQ(Last().ClassSource(), "SomeCls");
    EXPECT_EQ(Last().ErrDescription(), "It broke at time 3/2/2026 09:00:00");
    EXPECT_EQ(Last().FunctionSource(), "Some");
    EXPECT_EQ(Last().genre(), "Run Time Error in version 4.0.9, date:05-23-08");
    EXPECT_EQ(Last().ID(), "13");
    EXPECT_EQ(handler->RaisedBy(), "SomeCls");
    session.failures.Taken();
}

TEST_F(ErrorsHandlerTest, TellsTheTimeInTheFormOfTheLocale) {
    session.locale.Use("dd.MM.yyyy", ",", ".");
    Record(handler);
    EXPECT_EQ(Last().ErrDescription(), "It broke at time 02.03.2026 09:00:00");
    session.failures.Taken();
}

TEST_F(ErrorsHandlerTest, AddsTheLineOfATailBeforeTheTime) {
    Fail();
    EXPECT_EQ(session.failures.Taken(), "SomeCls/Some 13\n");
    const String description = Last().ErrDescription();
    const String start = "It broke,Line: ";
    const String end = " at time 3/2/2026 09:00:00";
    ASSERT_TRUE(description.starts_with(start)) << description;
    ASSERT_TRUE(description.ends_with(end)) << description;
    const String line = description.substr(start.size(), description.size() - start.size() - end.size());
    EXPECT_FALSE(line.empty());
    EXPECT_EQ(line.find_first_not_of("0123456789"), String::npos) << line;
    EXPECT_NE(line, "0");
}

TEST_F(ErrorsHandlerTest, KeepsTwoFailuresOfARunInTheFileInTheirOrder) {
    Fail("First");
    Fail("Second");
    session.failures.Taken();
    const dom::Node errors = ErrorsInFile();
    ASSERT_EQ(errors.childCount(), 2);
    EXPECT_EQ(errors.childNodes(0).selectSingleNode("FunctionSource").Text(), "First");
    EXPECT_EQ(errors.childNodes(1).selectSingleNode("FunctionSource").Text(), "Second");
    EXPECT_EQ(listener.heard, "SomeCls First\nSomeCls Second\n");
}

TEST_F(ErrorsHandlerTest, TellsItsListenersOnceTheEntryStandsInTheFile) {
    Long entries;
    int in_file = 0;
    String raised_by;
    listener.on_error = [&] {
        entries = handler->Log()->Error_Col()->Count();
        in_file = ErrorsInFile().childCount();
        raised_by = handler->RaisedBy();
    };
    Fail();
    EXPECT_EQ(entries, 1);
    EXPECT_EQ(in_file, 1);
    EXPECT_EQ(raised_by, "SomeCls");
    session.failures.Taken();
}

TEST_F(ErrorsHandlerTest, ShowsAMessageInPlaceOfTheEventWhenTheFileCannotBeWritten) {
    handler->ErrFileName(session.Path("no/such/folder.xml"));
    EXPECT_EQ(Record(handler), False);
    EXPECT_EQ(
        session.ui.messages,
        std::vector<String>{"Error 76 (The folder was not found at time 3/2/2026 09:00:00) in procedure GetErrors of "
                            "Class Module ErrorsHandler"});
    EXPECT_EQ(listener.heard, "");
    EXPECT_EQ(session.failures.Taken(), "SomeCls/Some 13\n") << "the entry stands all the same";
}

TEST_F(ErrorsHandlerTest, WritesEarlierEntriesToTheNextFileThatCanBeWritten) {
    handler->ErrFileName(session.Path("no/such/folder.xml"));
    Record(handler);
    handler->ErrFileName(session.Path(kErrorFile));
    Record(handler);
    EXPECT_EQ(ErrorsInFile().childCount(), 2);
    session.failures.Taken();
}

TEST_F(ErrorsHandlerTest, SurvivesAListenerThatThrows) {
    listener.on_error = [] { throw std::runtime_error("deaf"); };
    EXPECT_EQ(Record(handler), False);
    listener.on_error = [] { throw 5; };
    EXPECT_EQ(Record(handler), False);
    listener.on_error = [] { Raise(failure::kNothing); };
    Fail();
    EXPECT_EQ(session.ui.messages.size(), 3U);
    EXPECT_EQ(session.ui.messages[0],
              "Error 51 (deaf at time 3/2/2026 09:00:00) in procedure GetErrors of Class Module "
              "ErrorsHandler");
    EXPECT_EQ(ErrorsInFile().childCount(), 3);
    session.failures.Taken();
}

class ThrowingUi : public Ui {
public:
    void Message(const String& /*text*/) override { throw std::runtime_error("no screen"); }

protected:
    void DoEvents() override {}
};

TEST_F(ErrorsHandlerTest, SurvivesAScreenThatCannotShowTheMessage) {
    ThrowingUi ui;
    Services services{session.clock, session.locale, session.faults, session.shell, ui};
    const InstalledServices installed(services);
    handler->ErrFileName(session.Path("no/such/folder.xml"));
    EXPECT_EQ(Record(handler), False);
    Fail();
    handler->ErrFileName(session.Path(kErrorFile));
    session.failures.Taken();
}

TEST_F(ErrorsHandlerTest, SurvivesAListenerThatLetsGoOfIt) {
    Module().g_ErrorsHandler = Make<ErrorsHandler>();
    Module().g_ErrorsHandler->Events.Add(listener);
    listener.on_error = [] { Module().g_ErrorsHandler = {}; };
    Fail();
    EXPECT_EQ(listener.heard, "SomeCls Some\n");
    EXPECT_EQ(ErrorsInFile().childCount(), 1);
    EXPECT_FALSE(Module().g_ErrorsHandler);
}

TEST_F(ErrorsHandlerTest, SurvivesAListenerThatLetsGoOfItWhereAHostCallsIt) {
    testing::HeldByHost<ErrorsHandler> other(session);
    listener.on_error = [&] { other.LetGo(); };
    other->Events.Add(listener);
    other->ErrFileName(session.Path("other.xml"));
    EXPECT_EQ(other->GetErrors("It broke", "13", "SomeCls", "Some"), True);
    EXPECT_TRUE(other.outlived());
    EXPECT_EQ(listener.heard, "SomeCls Some\n");
}

TEST_F(ErrorsHandlerTest, TakesAFailureThatAListenerMeets) {
    listener.on_error = [&] {
        listener.on_error = {};
        Fail("Inner");
    };
    Fail("Outer");
    EXPECT_EQ(session.failures.Taken(), "SomeCls/Outer 13\nSomeCls/Inner 13\n");
    EXPECT_EQ(ErrorsInFile().childCount(), 2);
}

TEST_F(ErrorsHandlerTest, IsMissedSilently) {
    Module().g_ErrorsHandler = {};
    Fail();
    EXPECT_FALSE(Module().g_ErrorsHandler);
    EXPECT_EQ(handler->Log()->Error_Col()->Count(), 0);
}

TEST_F(ErrorsHandlerTest, RecordsExceptionsOfAnyKind) {
    kTail.Run("Standard", [] { throw std::out_of_range("far"); });
    kTail.Run("Odd", [] { throw 5; });
    kTail.Run("Memory", [] { throw std::bad_alloc(); });
    EXPECT_EQ(session.failures.Taken(), "SomeCls/Standard 51\nSomeCls/Odd 51\nSomeCls/Memory 7\n");
}

TEST(ErrorsHandlerEnd, KeepsWritingAFileEvenWithoutAnEntry) {
    TestSession session;
    Make<ErrorsHandler>();
    const auto file = DocumentOfFile(session.Path(kErrorFile));
    EXPECT_EQ(file->documentElement().baseName(), "Errors");
    EXPECT_EQ(file->documentElement().childCount(), 0);
}

TEST(ErrorsHandlerEnd, WritesTheEntriesOnceMore) {
    TestSession session;
    auto handler = Make<ErrorsHandler>();
    handler->GetErrors("It broke", "13", "SomeCls", "Some");
    session.files.Delete(session.Path(kErrorFile));
    handler = {};
    EXPECT_EQ(DocumentOfFile(session.Path(kErrorFile))->documentElement().childCount(), 1);
}

TEST(ErrorsHandlerEnd, IsSilentWhenTheFileCannotBeWritten) {
    TestSession session;
    auto handler = Make<ErrorsHandler>();
    handler->ErrFileName(session.Path("no/such/folder.xml"));
    handler = {};
    EXPECT_TRUE(session.ui.messages.empty());
}

/// Counts the bytes that go to the disk.
class CountingFiles : public ForwardingFiles {
public:
    using ForwardingFiles::ForwardingFiles;

    std::unique_ptr<OutputFile> Create(const String& path) override { return Counted(files_.Create(path)); }
    std::unique_ptr<OutputFile> Open(const String& path) override { return Counted(files_.Open(path)); }

    std::uint64_t written = 0;

private:
    class CountingFile : public OutputFile {
    public:
        CountingFile(std::unique_ptr<OutputFile> file, std::uint64_t& written)
            : file_(std::move(file)), written_(written) {}
        void WriteAt(std::uint64_t offset, std::string_view bytes) override {
            written_ += bytes.size();
            file_->WriteAt(offset, bytes);
        }
        void Cut(std::uint64_t length) override { file_->Cut(length); }
        void Sync() override { file_->Sync(); }
        FileFacts Facts() override { return file_->Facts(); }
        void Close() override { file_->Close(); }

    private:
        std::unique_ptr<OutputFile> file_;
        std::uint64_t& written_;
    };
    std::unique_ptr<OutputFile> Counted(std::unique_ptr<OutputFile> file) {
        return std::make_unique<CountingFile>(std::move(file), written);
    }
};

TEST(ErrorsHandlerGrowth, WritesLittleMoreThanTheFileOverTenThousandFailures) {
    TestSession session;
    CountingFiles files(session.files);
    Services services{session.clock, session.locale, files, session.shell, session.ui};
    const InstalledServices installed(services);
    for (int n = 1; n <= 10000; ++n) {
        kTail.Run("Some", [] { Raise(failure::kTypeMismatch); });
        if (n % 250 != 0 && n > 250) continue;
        const auto file = DocumentOfFile(session.Path(kErrorFile));
        ASSERT_EQ(file->error_text(), "") << "after " << n;
        ASSERT_EQ(file->documentElement().childCount(), n);
    }
    EXPECT_LT(files.written, 2 * session.files.Facts(session.Path(kErrorFile)).size);
    session.failures.Taken();
}

}  // namespace
}  // namespace mrlxmlclass
