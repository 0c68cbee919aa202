#include "common/TextConversion.h"

#include <string>

#include "common/BorrowedText.h"

std::string convertToCodePage(std::string codePage, std::wstring text) {
    return quavera::ConvertToCodePage(codePage.c_str(), text);
}

std::string convertToUtf8(std::wstring text) {
    return quavera::Narrow(text);
}

std::string convertToCP850(std::wstring text) {
    return quavera::ConvertToCodePage("CP850", text);
}

std::string base64EncodeString(std::string data) {
    return quavera::EncodeBase64(data);
}

std::string base64EncodeString(std::string* data) {
    return quavera::EncodeBase64(*data);
}

std::string base64DecodeString(std::string text) {
    return quavera::DecodeBase64(text);
}

std::wstring DecodeAndConvertFromUtf8(std::string text) {
    return quavera::WidenBase64(text);
}
