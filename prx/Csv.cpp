#include "prx/Csv.h"

#include <fmt/core.h>

#include <algorithm>

#include "mrlxmlclass/runtime/Text.h"
#include "prx/Refusal.h"

namespace prx {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {
        if (text_.starts_with(kByteOrderMark)) at_ = kByteOrderMark.size();
    }

    bool AtEnd() const { return at_ == text_.size(); }

    CsvRow Row() {
        CsvRow row{line_, {Field()}};
        while (Take(',')) row.fields.push_back(Field());
        if (!AtEnd() && !TakeLineEnd()) throw Refusal(fmt::format("line {}: text behind a closing quote", line_));
        return row;
    }

private:
    std::string Field() { return Take('"') ? Quoted() : Bare(); }

    std::string Bare() {
        const std::size_t first = at_;
        while (!AtEnd() && text_[at_] != ',' && text_[at_] != '\r' && text_[at_] != '\n') {
            if (text_[at_] == '"') throw Refusal(fmt::format("line {}: a quote inside a field without quotes", line_));
            ++at_;
        }
        return std::string(text_.substr(first, at_ - first));
    }

    std::string Quoted() {
        const std::size_t opened = line_;
        std::string field;
        for (;; ++at_) {
            if (AtEnd()) throw Refusal(fmt::format("line {}: a quote is not closed", opened));
            if (text_[at_] == '\n' || (text_[at_] == '\r' && !text_.substr(at_ + 1).starts_with('\n'))) ++line_;
            if (text_[at_] == '"') {
                ++at_;
                if (AtEnd() || text_[at_] != '"') return field;
            }
            field += text_[at_];
        }
    }

    bool TakeLineEnd() {
        const bool carriage_return = Take('\r');
        const bool ended = Take('\n') || carriage_return;
        if (ended) ++line_;
        return ended;
    }

    bool Take(char c) {
        if (AtEnd() || text_[at_] != c) return false;
        ++at_;
        return true;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
};

}  // namespace

std::vector<CsvRow> ReadCsv(std::string_view text) {
    std::vector<CsvRow> rows;
    for (Reader reader(text); !reader.AtEnd();) {
        CsvRow row = reader.Row();
        const auto says_something = [](const std::string& field) { return !Trim(field).empty(); };
        if (std::ranges::any_of(row.fields, says_something)) rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace prx
