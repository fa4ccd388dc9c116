#include "scan/SignatureInspector.h"

#include <gtest/gtest.h>

namespace veridane::test {

using SignatureInspector::identityOf;
using SignatureInspector::vendorFromSummary;

TEST(Signature, TheVendorIsWhatASummarySaysOfItsHolder) {
    const struct {
        std::optional<std::string> summary, vendor;
    } cases[] = {
        {"Developer ID Application: Foo GmbH (ABCDE12345)", "Foo GmbH"},
        {"Developer ID Application: Foo (Bar) Ltd (ABCDE12345)", "Foo (Bar) Ltd"},
        {"Apple Distribution: Foo", "Foo"},
        {"Mac Developer: Foo (ABC)", "Foo"},
        {"3rd Party Mac Developer Application:  Foo\u00A0 (ABC)", "Foo"},
        {"Apple Development: ", ""},
        {"Apple Development: (ABC)", "(ABC)"},
        {"Apple Mac OS Application Signing", "Apple"},
        {"developer ID Application: Foo (ABC)", "developer ID Application: Foo (ABC)"},
        {"Software Signing", "Software Signing"},
        {"Foo Inc. Signing ", "Foo Inc. Signing "},
        {"", {}},
        {{}, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(vendorFromSummary(c.summary), c.vendor) << c.summary.value_or("no summary");
}

TEST(Signature, TheIdentityFollowsFromWhatIsDeclared) {
    const std::string store = "Apple Mac OS Application Signing";
    const struct {
        const char* what;
        std::optional<CodeSignature> declared;
        SignatureIdentity identity;
    } cases[] = {
        {"nothing to read", {}, {}},
        {"nothing declared", CodeSignature(), {}},
        {"ad hoc", {{true, {}, {}}}, {{}, {}, true, false}},
        {"a team alone", {{false, "TEAM", {}}}, {{}, "TEAM", true, false}},
        {"an empty vendor", {{false, {}, "Mac Developer: "}}, {"", {}, true, false}},
        {"the App Store", {{true, "TEAM", store}}, {"Apple", "TEAM", true, true}},
        {"the system's own",
         {{true, {}, "Software Signing"}},
         {"Software Signing", {}, true, false}},
        {"a developer", {{true, {}, "Apple Development: Foo (A)"}}, {"Foo", {}, true, false}},
        {"another authority", {{true, {}, "An Apple Worldwide CA"}}, {"Apple", {}, true, true}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(identityOf(c.declared), c.identity) << c.what;
}

} // namespace veridane::test
