# Reads what `quavera show --json` prints of the sample documents with another program, jq: of each
# class numbers, texts and lists. See CMakeLists.txt for the variables.

cmake_minimum_required(VERSION 3.25)

set(tried "")

# reads(<class> <document> <expression> <expected>): the expression's value, in jq's compact form.
function(reads class document expression expected)
    execute_process(
        COMMAND ${TOOL} show --json --record ${class} "${document}"
        COMMAND "${JQ}" -c "${expression}"
        OUTPUT_VARIABLE value ERROR_VARIABLE errors RESULTS_VARIABLE statuses)
    if(NOT statuses STREQUAL "0;0" OR NOT value STREQUAL "${expected}\n")
        message(SEND_ERROR "${document}: jq '${expression}' gives ${statuses}\n${value}${errors}"
                           "expected ${expected}")
    endif()
    set(tried ${tried} ${class} PARENT_SCOPE)
endfunction()

macro(reads_sample class expression expected)
    reads(${class} "${DATA}/${class}/full.xml" "${expression}" "${expected}")
endmacro()

reads_sample(DataTrackInfo
    "[.PlaybackSeconds + 1, .Name, keys_unsorted[0]]"
    "[255,\"夜の散歩 – Süße Träume\",\"AlbumId\"]")
reads_sample(DataAlbum
    "[.ReleaseYear + 1, .Label, [.Tracks[].Name], .NonDisplayableAlbumTypes, .Artist.Shortcut]"
    "[1985,\"Mond & Söhne\",[\"月光\",\"終わり\"],[\"SINGLE\",\"LIVE\"],\"sakura\"]")
reads_sample(DataAlbumLite
    "[.AlbumType + 1, .PrimaryStyle, .DisplayableAlbumTypes, (.Compilation | not)]"
    "[823,\"City Pop\",[\"ALBUM\",\"COMPILATION\",\"R&B\"],false]")
reads_sample(DataArtist
    "[.Genres[0].SubCount + 1, .Blurb, [.Albums[].AlbumId], .Station.FreeStation]"
    "[857,\"<Kurz>: ein Chor\",[\"Alb.821\",\"Alb.853\"],true]")
reads_sample(DataArtistLite
    "[length, .Name]"
    "[3,\"Jürgen & die Wölfe\"]")
reads_sample(DataGenre
    "[.SubGenreCount + .ParentGenreCount, .Description, ([.ChildGenres[].SubCount] | add)]"
    "[33,\"Vom Barock bis heute 🎼\",13]")
reads_sample(DataGenreLite
    "[.SubCount + 1, .Name]"
    "[15,\"Żywa klasyka\"]")
reads_sample(DataPlaylist
    "[.LastModifiedDate + 1, .Name, [.Tracks[].TrackId]]"
    "[4294967296,\"Straßenmusik & 散歩 🚲\",[\"Tra.6900\",\"Tra.7000\"]]")
reads_sample(DataPlaylistLite
    "[.CreatedDate + 1, .Type, has(\"Tracks\")]"
    "[1262304001,\"FEATURED\",false]")
reads_sample(DataStation
    "[length, .Name, has(\"FreeStation\")]"
    "[3,\"Nordlicht Größe\",false]")
reads_sample(DataStationLite
    "[length, .Name, .FreeStation]"
    "[4,\"Küchenradio\",true]")
reads_sample(DataMemberLibrary
    "[.LastModified + 1, .MemberId, [.Tracks, .Playlists, .Stations | length]]"
    "[2147483649,\"Ελένη-7301\",[2,2,2]]")
reads_sample(DataMemberLibraryLite
    "[.LastModified + 1, .MemberId]"
    "[2147483649,\"Ελένη-7301\"]")
reads_sample(DataAccountProperties
    "[.quavera25MonthReset + .freePlaysAllowed, .userName, (.zip | split(\" \"))]"
    "[4294967320,\"ελένη<7>\",[\"106\",\"71\"]]")
reads_sample(DataAlbumReview
    "[.PublishDate + .BlurbSize, .Title, (.Detail | length)]"
    "[3155760024,\"Sommer & mehr 🌞\",10]")
reads_sample(DataImage
    "[.Height + .Width, .Title, (.Url | split(\"&\") | .[1])]"
    "[332,\"Große Klassik\",\"size=162\"]")
reads_sample(DataIndex
    "[.Start + 1, .Letter]"
    "[1205,\"M\"]")
reads_sample(DataLibraryModificationResult
    "[.SubCount + .LibraryLastDateModified, .Value]"
    "[4294967298,[\"Tra.7501\",\"Pll.7502\",\"Ключ & 鍵\"]]")

if(NOT tried STREQUAL CLASSES)
    message(SEND_ERROR "not these classes have been tried: ${CLASSES}\nbut these: ${tried}")
endif()

# Answers that are lists.
reads(DataImage "${CATALOG}/images/Alb.40013100.xml"
    "[length, .[0].Height + 1, [.[].Title], (.[1] | has(\"Height\"))]"
    "[2,163,[\"Vorderseite\",\"裏面\"],false]")
reads(DataIndex "${CATALOG}/index/default.xml"
    "[(map(.Start) | add), map(.Letter)]"
    "[4831,[\"A\",\"B\",\"Z\"]]")
