#include "tests/support/TestPlatform.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace mrlxmlclass::testing {

TempFolder::TempFolder() : path_((std::filesystem::temp_directory_path() / "mrlxmlclass-XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder: " + path_);
}

TempFolder::~TempFolder() {
    std::error_code ignored;  // what a test made unwritable may stay
    std::filesystem::remove_all(path_, ignored);
}

ScopedEnvironment::ScopedEnvironment(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    if (value != nullptr) {
        setenv(name, value, 1);
    } else {
        unsetenv(name);
    }
}

ScopedEnvironment::~ScopedEnvironment() {
    if (before_) {
        setenv(name_.c_str(), before_->c_str(), 1);
    } else {
        unsetenv(name_.c_str());
    }
}

}  // namespace mrlxmlclass::testing
