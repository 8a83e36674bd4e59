#include "mrlxmlclass/session/ErrorsCls.h"

namespace mrlxmlclass {

ErrorEntries::ErrorEntries() : document_(Make<dom::Document>()) {
    document_->LoadXML(R"(<?xml version="1.0" encoding="utf-8" ?><Errors/>)");
}

ErrorEntry ErrorEntries::Add() {
    const dom::Node element = document_->AppendElement(document_->documentElement(), "Error");
    for (const char* field : {"ClassSource", "ErrDescription", "FunctionSource", "genre", "ID"}) {
        document_->AppendElement(element, field);
    }
    elements_.push_back(element);
    return {document_, element};
}

ErrorEntry ErrorEntries::Item(Long n) const {
    if (n < 1 || n > Count()) Raise(failure::kIndexOutOfRange);
    return {document_, elements_[static_cast<std::size_t>(n.value() - 1)]};
}

}  // namespace mrlxmlclass
