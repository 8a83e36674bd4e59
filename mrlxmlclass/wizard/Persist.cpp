#include "mrlxmlclass/wizard/Persist.h"

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Tail.h"

namespace mrlxmlclass::Persist {
namespace {

constexpr FailureTail kTail{"Persist", FailureTail::Gives::SoFar};

// Kept: paths that differ in these only share one state.
constexpr std::string_view kDropped = ":\\/. &';!@#$%^*,<>-_[]0123456789()";
// Kept: only a save takes it out, so the state of a path with a "~" is never found again.
constexpr std::string_view kDroppedAtSaveOnly = "~";

void Drop(String& text, std::string_view characters) {
    std::erase_if(text, [&](char letter) { return characters.find(letter) != std::string_view::npos; });
}

String SideFile() {
    return Platform().files.ProgramFolder() + "/steps.xml";
}

void SetAttributes(const String& path, int value) {
    Files& files = Platform().files;
    const FileFacts facts = files.Facts(path);
    if (facts.exists && !facts.folder) files.SetAttributes(path, value);
}

/// Uses the side file without its attributes. It has them again afterwards whatever comes of the use.
template <class Use>
void UsePlain(const char* member, const String& path, Use&& use) {
    SetAttributes(path, 0);
    kTail.Run(member, std::forward<Use>(use));
    SetAttributes(path, file_attribute::kHidden + file_attribute::kSystem);
}

Ref<dom::Document> NewSideFile(const char* member, const String& path) {
    auto fresh = Make<dom::Document>();
    fresh->AppendProcessingInstruction("xml", "version='1.0'");
    fresh->AppendRoot("Persisting");
    UsePlain(member, path, [&] { fresh->Save(path); });
    auto document = Make<dom::Document>();
    document->Load(path);
    return document;
}

/// The element of one project, in a document of its own.
Ref<dom::Document> BranchOf(const Ref<Steps>& object, const String& name) {
    auto branch = Make<dom::Document>();
    branch->AppendCopy(branch->AppendRoot(name), object->PropertiesValues()->documentElement());
    return branch;
}

}  // namespace

Boolean SaveObject(const Ref<Steps>& object, ByRef<String> file_name) {
    constexpr const char* kMember = "SaveObject";
    return kTail.Run<Boolean>(kMember, [&](Boolean& result) {
        if (file_name->empty()) return;
        const String path = SideFile();
        auto document = Make<dom::Document>();
        if (!document->Load(path)) document = NewSideFile(kMember, path);
        Drop(*file_name, kDropped);
        Drop(*file_name, kDroppedAtSaveOnly);
        // Kept: a file in which the root stands alone, without a declaration, is left as it is.
        if (document->node().childCount() < 2) return;

        const dom::Node root = document->documentElement();
        dom::Node states = root.selectSingleNode(object->Name());
        // Kept: this alone decides, so the first save of all gives False, and a later one that fails from here on True.
        result = Boolean(bool(states));
        if (!result) states = document->AppendElement(root, object->Name());
        const Ref<dom::Document> branch = BranchOf(object, *file_name);
        const dom::Node old = states.selectSingleNode(*file_name);
        if (old) {
            document->ReplaceWithCopy(states, branch->documentElement(), old);
        } else {
            document->AppendCopy(states, branch->documentElement());
        }
        UsePlain(kMember, path, [&] { document->Save(path); });
    });
}

Boolean GetObject(const Ref<Steps>& object, ByRef<String> file_name) {
    constexpr const char* kMember = "GetObject";
    // Kept: the result stays False even when the state came back.
    return kTail.Run<Boolean>(kMember, [&](Boolean& /*result*/) {
        if (file_name->empty()) return;
        const String path = SideFile();
        UsePlain(kMember, path, [&] {
            const auto document = Make<dom::Document>();
            if (!document->Load(path)) return;
            Drop(*file_name, kDropped);
            const dom::Node states = document->documentElement().selectSingleNode(object->Name());
            const dom::Node state = states.selectSingleNode(*file_name).selectSingleNode("PropertiesValues");
            if (state) object->SetPropertiesValues(state);
        });
    });
}

}  // namespace mrlxmlclass::Persist
