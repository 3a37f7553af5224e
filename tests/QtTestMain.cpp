#include <QApplication>

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <link.h>

namespace {

// Keeps what is loaded now until the process ends, so that a leak report can name it.
int pin(dl_phdr_info* library, std::size_t, void*)
{
    dlopen(library->dlpi_name, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    // The tests expect English and a decimal point, whatever the host's language is.
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("LANGUAGE");
    const QApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    dl_iterate_phdr(pin, nullptr);
    return result;
}
