#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orvelle {

/// A text that never changes and may be long: its copies share it.
class SharedText {
public:
    SharedText() : SharedText(std::string()) {}
    SharedText(std::string text) : text_(std::make_shared<const std::string>(std::move(text))) {}
    SharedText(const char* text) : SharedText(std::string(text)) {}

    const std::string& get() const { return *text_; }
    operator const std::string&() const { return *text_; }
    operator std::string_view() const { return *text_; }
    std::size_t size() const { return text_->size(); }
    bool empty() const { return text_->empty(); }

    friend bool operator==(const SharedText& left, const SharedText& right) {
        return left.text_ == right.text_ || *left.text_ == *right.text_;
    }
    friend bool operator==(const SharedText& left, const std::string& right) {
        return *left.text_ == right;
    }
    friend bool operator==(const SharedText& left, const char* right) {
        return *left.text_ == right;
    }

private:
    std::shared_ptr<const std::string> text_;
};

} // namespace orvelle
