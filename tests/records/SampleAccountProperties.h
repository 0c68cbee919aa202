#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_ACCOUNT_PROPERTIES_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_ACCOUNT_PROPERTIES_H_

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// An account with every member present and no value twice.
struct SampleAccountProperties {
    using Soap = Quavera::Quavera2__AccountMetaData;

    static void Fill(Soap& soap, Values& values) {
        soap.accountType = values.Text("UNLIMITED & more");
        soap.billingPlan = values.Text("plan.2");
        soap.cobrand = values.Text("cob.303");
        soap.contactByEmail = values.Of(true);
        soap.country = values.Text("DE");
        soap.currency = values.Text("EUR");
        soap.dateCreated = values.Of(2222222222U);
        soap.email = values.Text("jörg@example.com");
        soap.firstName = values.Text("Jörg-太郎");
        soap.freePlaysAllowed = 1010;
        soap.freePlaysRemaining = -111;
        soap.freeTrialTimeLeftInMillis = 1212121212;
        soap.language = values.Text("de");
        soap.maximumSessions = values.Of(14);
        soap.memberId = values.Text("Mem.15");
        soap.preferredBitrate = values.Of(160);
        soap.quavera25MonthReset = values.Of(3333333333U);
        soap.state = values.Text("HE");
        soap.trialTerminationDate = values.Of(4242424242U);
        soap.userName = values.Text("Жук 🪲");
        soap.zip = values.Text("D-60311");
    }

    /// The element that it gives.
    static constexpr char kTree[] =
        "<AccountProperties>"
        "<accountType>UNLIMITED &amp; more</accountType>"
        "<cobrand>cob.303</cobrand>"
        "<country>DE</country>"
        "<dateCreated>2222222222</dateCreated>"
        "<email encoding=\"base64\">asO2cmdAZXhhbXBsZS5jb20=</email>"
        "<firstName encoding=\"base64\">SsO2cmct5aSq6YOO</firstName>"
        "<freePlaysAllowed>1010</freePlaysAllowed>"
        "<freePlaysRemaining>-111</freePlaysRemaining>"
        "<freeTrialTimeLeftInMillis>1212121212</freeTrialTimeLeftInMillis>"
        "<quavera25MonthReset>3333333333</quavera25MonthReset>"
        "<trialTerminationDate>4242424242</trialTerminationDate>"
        "<userName encoding=\"base64\">0JbRg9C6IPCfqrI=</userName>"
        "<zip>D-60311</zip>"
        "</AccountProperties>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "accountType = UNLIMITED & more\r\n"
        "cobrand = cob.303\r\n"
        "country = DE\r\n"
        "dateCreated = 2222222222\r\n"
        "email = jörg@example.com\r\n"
        "firstName = Jörg-太郎\r\n"
        "freePlaysAllowed = 1010\r\n"
        "freePlaysRemaining = -111\r\n"
        "freeTrialTimeLeftInMillis = 1212121212\r\n"
        "quavera25MonthReset = 3333333333\r\n"
        "trialTerminationDate = 4242424242\r\n"
        "userName = Жук 🪲\r\n"
        "zip = D-60311\r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_ACCOUNT_PROPERTIES_H_
