#pragma once

#include "contracts/contract.h"
#include "platform/internet.h"

namespace contracts {

struct InternetBench {
    virtual ~InternetBench() = default;
    virtual platform::Internet& internet() = 0;
    virtual std::string serve(const std::string& body) = 0; // returns the address of a page with this body
};

using InternetContract = Contract<InternetBench>;

TEST_P(InternetContract, Read_ReturnsTheBody_NothingOnErrors_AndStopsAfter64KB) {
    for (const std::string body : {"001015003\r\n", "\xFF\x80", ""})
        EXPECT_EQ(bench->internet().read(bench->serve(body), "Quillmere"), body);
    for (const char* address : {"https://localhost:1/", "https://nowhere.invalid/", "no address", ""})
        EXPECT_EQ(bench->internet().read(address, "Quillmere"), "") << address;
    const std::string endless(100'000, '9');
    EXPECT_EQ(bench->internet().read(bench->serve(endless), "Quillmere").size(), 64U * 1024 + 1);
}

} // namespace contracts
