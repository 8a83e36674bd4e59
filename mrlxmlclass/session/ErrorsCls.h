#pragma once

#include <vector>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/Numbers.h"
#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {

/// One recorded failure: five texts, kept in the document that the error file is written from.
class ErrorEntry {
public:
    String ClassSource() const { return Field(0).Text(); }
    void ClassSource(const String& text) { SetField(0, text); }
    String ErrDescription() const { return Field(1).Text(); }
    void ErrDescription(const String& text) { SetField(1, text); }
    String FunctionSource() const { return Field(2).Text(); }
    void FunctionSource(const String& text) { SetField(2, text); }
    String genre() const { return Field(3).Text(); }
    void genre(const String& text) { SetField(3, text); }
    String ID() const { return Field(4).Text(); }
    void ID(const String& text) { SetField(4, text); }

private:
    friend class ErrorEntries;
    ErrorEntry(Ref<dom::Document> document, dom::Node element) : document_(std::move(document)), element_(element) {}
    dom::Node Field(int place) const { return element_.childNodes(place); }
    void SetField(int place, const String& text) { document_->SetText(Field(place), text); }

    Ref<dom::Document> document_;
    dom::Node element_;
};

/// The entries in the order in which they came, 1-based.
class ErrorEntries : public Counted {
public:
    ErrorEntries();
    ErrorEntry Add();
    Long Count() const { return elements_.size(); }
    /// Fails (9) outside 1 to `Count`.
    ErrorEntry Item(Long n) const;
    const Ref<dom::Document>& document() const { return document_; }

private:
    Ref<dom::Document> document_;
    std::vector<dom::Node> elements_;
};

/// The error log. Its file is UTF-8 XML: a root `Errors` with one `Error` an entry, each with its five fields.
class ErrorsCls : public Counted {
public:
    ErrorsCls() : entries_(Make<ErrorEntries>()) {}
    Ref<ErrorEntries> Error_Col() const { return entries_; }
    /// Writes all entries. What the file already holds is not written again; a file that was deleted, changed or
    /// replaced meanwhile is written whole.
    void ToXmlFile(const String& FileName) { entries_->document()->Save(FileName); }

private:
    Ref<ErrorEntries> entries_;
};

}  // namespace mrlxmlclass
