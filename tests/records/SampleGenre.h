#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_GENRE_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_GENRE_H_

#include <string>
#include <utility>

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// A genre with every member present, two items in each list, and no value twice.
struct SampleGenre {
    using Soap = Quavera::Quavera2__GenreMetadata;
    using Summary = Quavera::Quavera2__LiteGenreMetadata;
    using Summaries = Quavera::Quavera2__ArrayOfLiteGenreMetadata;

    static void Fill(Soap& soap, Values& values) {
        soap.abbreviation = values.Text("Ф-Дж");
        soap.displayName = values.Text("Фьюжн-джаз");
        soap.genreId = values.Text("g.303");
        soap.name = values.Text("フュージョン");
        soap.shortcut = values.Text("sc.505");
        soap.subGenreCount = 606;
        soap.childGenres =
            values.List<Summaries>({NewSummary(values, "g.711", "Funk é groove 🎸", "sc.712", 713),
                                    NewSummary(values, "g.721", "Élektrik", "sc.722", 723)});
        soap.description = values.Text("Jazz ♪");
        soap.parentGenres =
            values.List<Summaries>({NewSummary(values, "g.911", "Jazz", "sc.912", 913),
                                    NewSummary(values, "g.921", "Rock 岩", "sc.922", 923)});
        soap.primaryParentGenre = NewSummary(values, "g.1011", "Weltmusik", "sc.1012", 1013);
    }

    static Summary* NewSummary(Values& values, std::string id, std::string name,
                               std::string shortcut, int subCount) {
        Summary summary;
        summary.genreId = values.Text(std::move(id));
        summary.name = values.Text(std::move(name));
        summary.shortcut = values.Text(std::move(shortcut));
        summary.subCount = subCount;
        return values.Of(summary);
    }

    /// The element that it gives.
    static constexpr char kTree[] =
        "<Genre>"
        "<Abbreviation encoding=\"base64\">0KQt0JTQtg==</Abbreviation>"
        "<DisplayName encoding=\"base64\">0KTRjNGO0LbQvS3QtNC20LDQtw==</DisplayName>"
        "<GenreId>g.303</GenreId>"
        "<Name encoding=\"base64\">44OV44Ol44O844K444On44Oz</Name>"
        "<SubGenreCount>606</SubGenreCount>"
        "<ChildGenres>"
        "<GenreLite><GenreId>g.711</GenreId>"
        "<Name encoding=\"base64\">RnVuayDDqSBncm9vdmUg8J+OuA==</Name>"
        "<SubCount>713</SubCount></GenreLite>"
        "<GenreLite><GenreId>g.721</GenreId>"
        "<Name encoding=\"base64\">w4lsZWt0cmlr</Name>"
        "<SubCount>723</SubCount></GenreLite>"
        "</ChildGenres>"
        "<Description encoding=\"base64\">SmF6eiDimao=</Description>"
        "<PrimaryParentGenreId>g.1011</PrimaryParentGenreId>"
        "<ParentGenreCount>2</ParentGenreCount>"
        "<ParentGenres>"
        "<GenreLite><GenreId>g.911</GenreId>"
        "<Name encoding=\"base64\">SmF6eg==</Name>"
        "<SubCount>913</SubCount></GenreLite>"
        "<GenreLite><GenreId>g.921</GenreId>"
        "<Name encoding=\"base64\">Um9jayDlsqk=</Name>"
        "<SubCount>923</SubCount></GenreLite>"
        "</ParentGenres>"
        "</Genre>";

    /// The log text of the record that this element fills, where its lists hold their items
    /// `times` over.
    static std::string Text(int times) {
        std::string text =
            "abbreviation = Ф-Дж\r\n"
            "displayName = Фьюжн-джаз\r\n"
            "genreId = g.303\r\n"
            "name = フュージョン\r\n"
            "subGenreCount = 606\r\n"
            "parentGenreCount = 0\r\n";
        for (int time = 0; time < times; ++time) {
            text +=
                "childGenres genreId = g.711\r\nname = Funk é groove 🎸\r\nsubCount = 713\r\n"
                "childGenres genreId = g.721\r\nname = Élektrik\r\nsubCount = 723\r\n";
        }
        for (int time = 0; time < times; ++time) {
            text +=
                "parentGenres genreId = g.911\r\nname = Jazz\r\nsubCount = 913\r\n"
                "parentGenres genreId = g.921\r\nname = Rock 岩\r\nsubCount = 923\r\n";
        }
        return text + "primaryParentGenreId = g.1011\r\n";
    }
    inline static const std::string kText = Text(1);
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_GENRE_H_
