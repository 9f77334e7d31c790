#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "fp/client/FpClient.h"
#include "testing/LogCapture.h"

using namespace TOV;

namespace {

struct Sink : IManagedEventSink {
    void HandleEvent(const std::string& name, const COid& oid, const std::string& user,
                     const std::string& value, const CParam&) override {
        last = name + "/" + oid.ToString() + "=" + value + " by " + user;
    }
    std::string last;
};

// Events are queued so the test thread delivers them.
class FpClientTest : public ::testing::Test {
protected:
    void SetUp() override {
        CVarDecl contrast("contrast");
        contrast.Instances({"0", "1"}).Default("3").Check(CValidator::Integer(0, 9));
        ASSERT_TRUE(store.Declare(contrast).Success());
        fp.Attach();
    }
    void TearDown() override { fp.Detach(); }
    CDataStore store;
    CTovClient client{store, CTovClient::DELIVER_QUEUED};
    FP::FpClient fp{&client};
};

std::string Stdout(const std::function<std::string()>& call, std::string& result) {
    testing::internal::CaptureStdout();
    result = call();
    return testing::internal::GetCapturedStdout();
}

}  // namespace

TEST_F(FpClientTest, ReadsAndChecksArguments) {
    EXPECT_EQ("3", fp.GetData(std::string("contrast"), "1"));
    EXPECT_TRUE(fp.ExistsInDb("contrast", "0"));
    EXPECT_FALSE(fp.ExistsInDb("contrast", "5"));
    EXPECT_EQ("", fp.GetData(std::string("nosuch"), "0"));  // failure hidden

    std::string got;
    EXPECT_EQ("GetData Error2: Name: , Instance: 1\n",
              Stdout([&] { return fp.GetData(std::string(), std::string("1")); }, got));
    EXPECT_EQ("", got);
    char name[] = "contrast";
    char empty[] = "";
    EXPECT_EQ("GetData Error1: Name: contrast, Instance: \n",
              Stdout([&] { return fp.GetData(name, ""); }, got));
    EXPECT_EQ("GetData Error1: Name: , Instance: 0\n",
              Stdout([&] { return fp.GetData(empty, "0"); }, got));
    EXPECT_EQ("", Stdout([&] { return fp.GetData(name, "0"); }, got));
    EXPECT_EQ("3", got);
}

TEST_F(FpClientTest, WritesReportRefusalsOnlyWhereAsked) {
    FP::Testing::LogCapture log("fp.client");
    std::vector<std::string> heard;
    fp.SetRefusalListener([&heard](const FP::FpClient::Refusal_t& r) {
        heard.push_back(r.name + "/" + r.instance + "=" + r.value + ": " + r.message);
    });
    Sink sink;
    ASSERT_TRUE(fp.AddManagedEventHandler("contrast", &sink, "0").Success());

    EXPECT_TRUE(fp.SendData("contrast", "0", "12"));  // refused, but fire and forget
    EXPECT_FALSE(fp.SendDataWait("contrast", "0", "12"));
    EXPECT_EQ("Invalid value '12' for contrast: out of range 0 to 9",
              fp.SendDataWaitMsg("contrast", "0", "12"));
    EXPECT_EQ(0u, client.DeliverEvents());
    EXPECT_EQ("3", fp.GetData(std::string("contrast"), "0"));
    // Every refused write is heard, whichever form issued it.
    const std::string range = "contrast/0=12: Invalid value '12' for contrast: out of range 0 to 9";
    EXPECT_EQ((std::vector<std::string>{range, range, range}), heard);
    EXPECT_EQ(3u, log.Entries().size());  // one warning each
    EXPECT_EQ(3u, fp.GetRefusalCount());
    log.Clear();

    EXPECT_FALSE(fp.SendData("contrast", "", "4"));
    EXPECT_EQ(std::vector<std::string>{"SendData Error: contrast, Instance: "}, log.Messages());
    EXPECT_EQ(0u, client.DeliverEvents());

    EXPECT_TRUE(fp.SendData("contrast", "0", "4"));
    EXPECT_EQ(1u, client.DeliverEvents());
    EXPECT_EQ("contrast/0=4 by tov.fp", sink.last);
    EXPECT_TRUE(fp.SendDataWait("contrast", "0", "5"));
    EXPECT_EQ("", fp.SendDataWaitMsg("contrast", "0", "6"));
    EXPECT_TRUE(fp.SendOp("other", "contrast", COid("0"), "7").Success());
    EXPECT_EQ(3u, client.DeliverEvents());
    EXPECT_EQ("contrast/0=7 by other", sink.last);
    ASSERT_TRUE(fp.RemoveManagedEventHandler("contrast", &sink, "0").Success());
    EXPECT_TRUE(fp.SendDataWait("contrast", "0", "1"));
    EXPECT_EQ(0u, client.DeliverEvents());
    EXPECT_EQ(3u, heard.size());  // the pass-throughs report nothing themselves
}
