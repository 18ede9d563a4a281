// The unit tests' program. A listener puts every subsystem back before each test case, so that no
// case sees what another has left, in whatever order they run.
#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include <doctest/doctest.h>

#include "support/program.hpp"

namespace {

struct RemiseAZero : doctest::IReporter {
    explicit RemiseAZero(const doctest::ContextOptions&) {}
    void report_query(const doctest::QueryData&) override {}
    void test_run_start() override {}
    void test_run_end(const doctest::TestRunStats&) override {}
    void test_case_start(const doctest::TestCaseData&) override { programme_neuf(); }
    void test_case_reenter(const doctest::TestCaseData&) override { programme_neuf(); }
    void test_case_end(const doctest::CurrentTestCaseStats&) override {}
    void test_case_exception(const doctest::TestCaseException&) override {}
    void subcase_start(const doctest::SubcaseSignature&) override {}
    void subcase_end() override {}
    void log_assert(const doctest::AssertData&) override {}
    void log_message(const doctest::MessageData&) override {}
    void test_case_skipped(const doctest::TestCaseData&) override {}
};
REGISTER_LISTENER("remise_a_zero", 1, RemiseAZero);

}  // namespace
