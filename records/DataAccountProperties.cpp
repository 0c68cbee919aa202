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

std::string DataAccountProperties::ToString() {
    TextLines lines;
    lines.Plain("accountType", accountType);
    lines.Plain("cobrand", cobrand);
    lines.Plain("country", country);
    lines.Unsigned("dateCreated", dateCreated);
    lines.Display("email", email);
    lines.Display("firstName", firstName);
    lines.Number("freePlaysAllowed", freePlaysAllowed);
    lines.Number("freePlaysRemaining", freePlaysRemaining);
    lines.Unsigned("freeTrialTimeLeftInMillis",
                   static_cast<std::uint32_t>(freeTrialTimeLeftInMillis));
    lines.Unsigned("quavera25MonthReset", quavera25MonthReset);
    lines.Unsigned("trialTerminationDate", trialTerminationDate);
    lines.Display("userName", userName);
    lines.Plain("zip", zip);
    return lines.Take();
}
