#include "records/DataAccountProperties.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataAccountProperties::DataAccountProperties() = default;

void DataAccountProperties::ToXML(ZQXML::INode* node, Quavera::Quavera2__AccountMetaData* soap) {
    const auto trialTimeLeft = static_cast<std::uint32_t>(soap->freeTrialTimeLeftInMillis);
    ElementWriter out(node);
    out.Plain("accountType", soap->accountType);
    out.Plain("cobrand", soap->cobrand);
    out.Plain("country", soap->country);
    out.Decimal("dateCreated", soap->dateCreated);
    out.Display("email", soap->email);
    out.Display("firstName", soap->firstName);
    out.Decimal("freePlaysAllowed", &soap->freePlaysAllowed);
    out.Decimal("freePlaysRemaining", &soap->freePlaysRemaining);
    out.Decimal("freeTrialTimeLeftInMillis", &trialTimeLeft);
    out.Decimal("quavera25MonthReset", soap->quavera25MonthReset);
    out.Decimal("trialTerminationDate", soap->trialTerminationDate);
    out.Display("userName", soap->userName);
    out.Plain("zip", soap->zip);
}

zq::auto_com<ZQXML::INode> DataAccountProperties::ToXML(Quavera::Quavera2__AccountMetaData* soap) {
    return NewElementWith<DataAccountProperties>("AccountProperties", soap);
}

void DataAccountProperties::FromXML(ZQXML::INode* node) {
    for (ChildReader child(FindChild(node, "AccountProperties")); child.Next();) {
        child.Plain("accountType", accountType);
        child.Plain("cobrand", cobrand);
        child.Plain("country", country);
        child.Unsigned("dateCreated", dateCreated);
        child.Display("email", email);
        child.Display("firstName", firstName);
        child.Number("freePlaysAllowed", freePlaysAllowed);
        child.Number("freePlaysRemaining", freePlaysRemaining);
        child.Unsigned("freeTrialTimeLeftInMillis", freeTrialTimeLeftInMillis);
        child.Plain("lastName", lastName);
        child.Unsigned("quavera25MonthReset", quavera25MonthReset);
        child.Unsigned("trialTerminationDate", trialTerminationDate);
        child.Display("userName", userName);
        child.Plain("zip", zip);
    }
}

void AddLines(const DataAccountProperties& account, TextLines& lines) {
    lines.Plain("accountType", account.accountType);
    lines.Plain("cobrand", account.cobrand);
    lines.Plain("country", account.country);
    lines.Unsigned("dateCreated", account.dateCreated);
    lines.Display("email", account.email);
    lines.Display("firstName", account.firstName);
    lines.Number("freePlaysAllowed", account.freePlaysAllowed);
    lines.Number("freePlaysRemaining", account.freePlaysRemaining);
    lines.Unsigned("freeTrialTimeLeftInMillis",
                   static_cast<std::uint32_t>(account.freeTrialTimeLeftInMillis));
    lines.Unsigned("quavera25MonthReset", account.quavera25MonthReset);
    lines.Unsigned("trialTerminationDate", account.trialTerminationDate);
    lines.Display("userName", account.userName);
    lines.Plain("zip", account.zip);
}
