#include "bench/report/Growth.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <ostream>
#include <vector>

#include "bench/report/Contenders.h"
#include "bench/report/Markdown.h"
#include "bench/shared/Cases.h"

namespace bench {
namespace {

struct Point {
    double tracks;
    double instructions;  // per track
};

struct Line {
    std::string name;
    std::vector<Point> points;
};

struct Panel {
    std::string title;
    std::vector<Line> lines;
};

// Lengths in the picture's units.
constexpr double kWidth = 900;
constexpr double kHeight = 400;
constexpr double kTop = 56;
constexpr double kBottom = 340;
constexpr double kFirstLeft = 70;
constexpr double kPanelWidth = 300;
constexpr double kPanelStep = 445;  // from the one panel to the next
constexpr double kLineOfText = 16;

/// How a contender is drawn. The colours are readable on white and on a dark ground alike; those
/// who cannot tell them apart have the dashes and the names at the lines' ends.
struct Style {
    const char* name;
    const char* color;
    const char* dashes;
    const char* width;
};

constexpr Style kStyles[] = {
    {"ours", "#e8590c", "none", "3"},    {"floor", "#2b8a3e", "none", "2"},
    {"pugixml", "#1c7ed6", "none", "2"}, {"libxml2", "#ae3ec9", "6 3", "2"},
    {"tinyxml2", "#a87900", "2 3", "2"},
};

const Style& StyleOf(const std::string& name) {
    return *std::find_if(std::begin(kStyles), std::end(kStyles) - 1,
                         [&](const Style& style) { return name == style.name; });
}

/// A length along an axis whose equal steps are equal ratios.
class LogScale {
 public:
    LogScale(double low, double high, double from, double to)
        : low_(std::log(low)), high_(std::log(high)), from_(from), to_(to) {}
    std::string operator()(double value) const { return Fixed(At(value), 1); }
    double At(double value) const {
        return from_ + (std::log(value) - low_) / (high_ - low_) * (to_ - from_);
    }

 private:
    double low_;
    double high_;
    double from_;
    double to_;
};

/// 1, 2 and 5 times the powers of ten that enclose all values.
std::vector<double> TicksOf(const std::vector<Panel>& panels) {
    double low = panels[0].lines[0].points[0].instructions;
    double high = low;
    for (const Panel& panel : panels) {
        for (const Line& line : panel.lines) {
            for (const Point& point : line.points) {
                low = std::min(low, point.instructions);
                high = std::max(high, point.instructions);
            }
        }
    }
    std::vector<double> ticks;
    for (double power = 1; ticks.empty() || ticks.back() < high; power *= 10) {
        for (const double tick : {power, 2 * power, 5 * power}) {
            if (tick <= low) {
                ticks.clear();
            }
            if (ticks.empty() || ticks.back() < high) {
                ticks.push_back(tick);
            }
        }
    }
    return ticks;
}

class Picture {
 public:
    Picture(std::ostream& out, const std::vector<Panel>& panels)
        : out_(out), ticks_(TicksOf(panels)), y_(ticks_.front(), ticks_.back(), kBottom, kTop) {}

    void Draw(const std::vector<Panel>& panels) {
        Begin();
        for (std::size_t at = 0; at < panels.size(); ++at) {
            Draw(panels[at], kFirstLeft + static_cast<double>(at) * kPanelStep);
        }
        out_ << "</svg>\n";
    }

 private:
    void Begin() {
        out_ << "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 " << kWidth << ' ' << kHeight
             << "' role='img' aria-labelledby='title desc'\n"
             << "     font-family='sans-serif' font-size='13' fill='#767676'>\n"
             << "<title id='title'>Instructions of the round per track, by the album's size"
             << "</title>\n"
             << "<desc id='desc'>Two panels, the development machine and the target; one line for "
             << "each contender. Both axes are logarithmic. The tables beside the picture hold the "
             << "numbers.</desc>\n";
    }

    void Draw(const Panel& panel, double left) {
        const std::vector<Point>& points = panel.lines[0].points;
        const double right = left + kPanelWidth;
        const LogScale x(points.front().tracks, points.back().tracks, left, right);
        Text(left, kTop - 24, "start", panel.title, "font-weight='bold'");
        for (const double tick : ticks_) {
            out_ << "<path d='M" << left << ' ' << y_(tick) << 'H' << right
                 << "' stroke='#767676' stroke-opacity='0.4'/>\n";
            Text(left - 8, y_.At(tick) + 4, "end", Whole(tick));
        }
        for (const Point& point : points) {
            Text(x.At(point.tracks), kBottom + 20, "middle", Whole(point.tracks));
        }
        Text(left + kPanelWidth / 2, kBottom + 42, "middle", "tracks of the album");
        for (const Line& line : panel.lines) {
            Draw(line, x);
        }
        Label(panel, x);
    }

    void Draw(const Line& line, const LogScale& x) {
        const Style& style = StyleOf(line.name);
        out_ << "<path fill='none' stroke='" << style.color << "' stroke-width='" << style.width
             << "' stroke-dasharray='" << style.dashes << "' d='";
        char command = 'M';
        for (const Point& point : line.points) {
            out_ << command << x(point.tracks) << ' ' << y_(point.instructions);
            command = 'L';
        }
        out_ << "'/>\n";
        for (const Point& point : line.points) {
            out_ << "<circle cx='" << x(point.tracks) << "' cy='" << y_(point.instructions)
                 << "' r='3.5' fill='" << style.color << "'/>\n";
        }
    }

    /// The lines' names at their ends, from the top down, none over another.
    void Label(const Panel& panel, const LogScale& x) {
        std::vector<const Line*> lines;
        for (const Line& line : panel.lines) {
            lines.push_back(&line);
        }
        std::sort(lines.begin(), lines.end(), [](const Line* one, const Line* other) {
            return one->points.back().instructions > other->points.back().instructions;
        });
        double lowest = 0;
        for (const Line* line : lines) {
            lowest = std::max(y_.At(line->points.back().instructions) + 4, lowest + kLineOfText);
            const std::string color = StyleOf(line->name).color;
            Text(x.At(line->points.back().tracks) + 10, lowest, "start", line->name,
                 "fill='" + color + "'");
        }
    }

    void Text(double x, double y, const char* anchor, const std::string& text,
              const std::string& attributes = "") {
        out_ << "<text x='" << Fixed(x, 1) << "' y='" << Fixed(y, 1) << "' text-anchor='" << anchor
             << "' " << attributes << '>' << text << "</text>\n";
    }

    std::ostream& out_;
    std::vector<double> ticks_;
    LogScale y_;
};

/// The panel of what `round` says of a contender and a number of tracks.
template <class Counts, class Round>
Panel PanelOf(const std::string& title, const Names& names, const Counts& trackCounts,
              Round round) {
    Panel panel{title, {}};
    for (const std::string& name : names) {
        Line line{name, {}};
        for (const int trackCount : trackCounts) {
            if (GrowsTo(trackCount, name)) {
                line.points.push_back(
                    {static_cast<double>(trackCount), round(name, trackCount) / trackCount});
            }
        }
        panel.lines.push_back(line);
    }
    return panel;
}

}  // namespace

bool WriteGrowthPicture(const Measurements& measured, const std::string& file) {
    const std::vector<Panel> panels = {
        PanelOf("Instructions per track, x86-64, Release", kGrowing, kGrowth,
                [&](const std::string& name, int trackCount) {
                    return measured.Round(name, trackCount);
                }),
        PanelOf("Instructions per track, 32-bit ARM, MinSizeRel", kRoundOnTarget, kGrowthOnTarget,
                [&](const std::string& name, int trackCount) {
                    return measured.OnTarget().Count(name, kRound, trackCount);
                })};
    std::ofstream out(file);
    Picture(out, panels).Draw(panels);
    out.close();
    if (!out) {
        std::fprintf(stderr, "quavera-bench-report: cannot write %s\n", file.c_str());
    }
    return static_cast<bool>(out);
}

}  // namespace bench
