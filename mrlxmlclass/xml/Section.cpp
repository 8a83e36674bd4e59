#include "mrlxmlclass/xml/Section.h"

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass {
namespace {

constexpr std::string_view kAutosaveName = "AutoSave001.prx";

std::string_view DeclarationText(Declaration declaration, Boolean unicode) {
    switch (declaration) {
        case Declaration::Encoded:
            return unicode ? R"(<?xml version="1.0" encoding="utf-16" ?>)"
                           : R"(<?xml version="1.0" encoding="utf-8" ?>)";
        case Declaration::Plain:
            return R"(<?xml version="1.0" ?>)";
        case Declaration::None:
            break;
    }
    return {};
}

/// A name that no element can have leaves the document without a root.
void Seed(const Ref<dom::Document>& document, std::string_view root_name, std::string_view declaration) {
    document->LoadXML(String(declaration).append("<").append(root_name).append("/>"));
}

}  // namespace

Ref<dom::Document> WriteSection(const SectionShape& shape, const SectionOrder& order, const BodyWriter& write_body) {
    Ref<dom::Document> document = order.document ? order.document : Make<dom::Document>();
    if (order.header) {
        Seed(document, shape.seed, DeclarationText(shape.declaration, order.unicode));
    } else if (order.file_exists) {
        document->Load(order.file_name);
    }
    const dom::Node section = Conversions::CreateParentNode(document, shape.name);
    if (!section) return {};
    write_body(document, section);
    // Kept: any other True than the full one does not save.
    if (order.save.full()) SaveByRule(document, order.file_name);
    return document;
}

bool IsAutosave(std::string_view file_name) {
    return !Module().g_SourcePrima && file_name.find(kAutosaveName) != std::string_view::npos;
}

void SaveByRule(const Ref<dom::Document>& document, const String& file_name) {
    Files& files = Platform().files;
    // Kept: an autosave file that this very save creates stays visible; the next section hides it.
    if (!IsAutosave(file_name) || !files.Facts(file_name).exists) {
        document->Save(file_name);
        return;
    }
    files.SetAttributes(file_name, 0);
    document->Save(file_name);
    files.SetAttributes(file_name, file_attribute::kHidden + file_attribute::kSystem);
}

Ref<dom::Document> NewDocument(std::string_view root_name, Boolean header, Boolean unicode,
                               const BodyWriter& write_body) {
    auto document = Make<dom::Document>();
    Seed(document, root_name, DeclarationText(header ? Declaration::Encoded : Declaration::None, unicode));
    if (const dom::Node root = document->documentElement()) write_body(document, root);
    return document;
}

Ref<dom::Document> DocumentToRead(const String& FileName, Boolean loaded, ByRef<Ref<dom::Document>>& xmlDoc) {
    if (!loaded) *xmlDoc = DocumentOfFile(FileName);
    return *xmlDoc;
}

Ref<dom::Document> DocumentOfFile(const String& file_name) {
    auto document = Make<dom::Document>();
    document->Load(file_name);
    return document;
}

Ref<dom::Document> DocumentOfText(std::string_view text) {
    auto document = Make<dom::Document>();
    document->LoadXML(text);
    return document;
}

dom::Node RootOf(const Ref<dom::Document>& document) {
    const dom::Node root = document->documentElement();
    if (!root)
        Raise(failure::kNothing,
              document->error_text().empty() ? "The document has no root element" : document->error_text());
    return root;
}

dom::Node FirstElementIn(dom::Node node) {
    return Conversions::FindFirstSliblingElement(node.firstChild());
}

dom::Node ReadItems(dom::Node child, std::string_view item_name, const std::function<void(dom::Node)>& read) {
    while (child) {
        Platform().ui.YieldToHost();
        if (child.nodeType() == dom::Node::kElement) {
            if (child.baseName() != item_name) break;
            read(child);
        }
        child = Conversions::MoveNextSiblingElement(child);
    }
    return child;
}

}  // namespace mrlxmlclass
