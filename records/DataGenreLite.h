#ifndef QUAVERA_RECORDS_DATA_GENRE_LITE_H_
#define QUAVERA_RECORDS_DATA_GENRE_LITE_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"

class ElementWriter;
class TextLines;

namespace Quavera {
class Quavera2__LiteGenreMetadata;
}

/// A genre's summary, as lists carry it, and other genres as parent or child.
///
/// Element: "GenreLite". `FromXML` expects that element itself.
/// Deliberate deviations: there is no writer into a given node; a count of zero is not written.
class QUAVERA_API DataGenreLite : public QuavData {
 public:
    DataGenreLite();
    DataGenreLite(const DataGenreLite&) = default;
    DataGenreLite(DataGenreLite&&) = default;
    DataGenreLite& operator=(const DataGenreLite&) = default;
    DataGenreLite& operator=(DataGenreLite&&) = default;
    ~DataGenreLite() override;

    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LiteGenreMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string genreId;
    std::wstring name;
    int subCount = 0;

 private:
    friend class ElementWriter;
    friend class TextLines;

    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteGenreMetadata* soap);
    /// Adds the lines of the log text to those of a record that holds this one.
    void AddLines(TextLines& lines);
};

#endif  // QUAVERA_RECORDS_DATA_GENRE_LITE_H_
