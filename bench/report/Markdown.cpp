#include "bench/report/Markdown.h"

#include <cstdio>

namespace bench {

Table::Table(const std::vector<std::string>& heads) {
    Row(heads);
    Row(std::vector<std::string>(heads.size(), "---"));
}

void Table::Row(const std::vector<std::string>& cells) {
    for (const std::string& cell : cells) {
        std::printf("| %s ", cell.c_str());
    }
    std::printf("|\n");
}

std::string Fixed(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string Whole(double value) {
    std::string text = Fixed(value, 0);
    for (std::size_t at = text.size(); at > 3; at -= 3) {
        text.insert(at - 3, ",");
    }
    return text;
}

}  // namespace bench
