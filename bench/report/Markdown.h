#ifndef QUAVERA_BENCH_REPORT_MARKDOWN_H_
#define QUAVERA_BENCH_REPORT_MARKDOWN_H_

#include <string>
#include <vector>

namespace bench {

/// A table in Markdown, printed row by row.
class Table {
 public:
    explicit Table(const std::vector<std::string>& heads);
    void Row(const std::vector<std::string>& cells);
};

/// A number with so many decimals.
std::string Fixed(double value, int decimals);

/// A number without decimals, in groups of three digits.
std::string Whole(double value);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_MARKDOWN_H_
