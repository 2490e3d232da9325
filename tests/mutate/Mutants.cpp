// Writes for every test which mutants it reached and how long it took, when asked to.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>

namespace {

class Recorder : public testing::EmptyTestEventListener {
public:
    explicit Recorder(const char* path) : out_(path) {}

private:
    void OnTestStart(const testing::TestInfo&) override {
        std::memset(orvelle_mutants::reached, 0, sizeof orvelle_mutants::reached);
    }

    void OnTestEnd(const testing::TestInfo& test) override {
        out_ << test.test_suite_name() << '.' << test.name() << '\t'
             << test.result()->elapsed_time() << '\t';
        for (int id = 0; id < orvelle_mutants::limit; ++id)
            if (orvelle_mutants::reached[id])
                out_ << id << ' ';
        out_ << std::endl;
    }

    std::ofstream out_;
};

const bool isRecording = [] {
    if (const char* path = std::getenv("ORVELLE_REACHED"))
        testing::UnitTest::GetInstance()->listeners().Append(new Recorder(path));
    return true;
}();

} // namespace
