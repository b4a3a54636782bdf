#include "fuzz.h"
#include "help/help_archive.h"
#include "help/help_file.h"
#include "help/page_search.h"

using namespace stoikal;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const QString path = fuzz::FileOf(data, size, QStringLiteral("Aide.chm"));
    const auto archive = HelpArchive::Open(path);
    fuzz::Require(archive || !archive.Reason().isEmpty(), "what cannot be opened says why");
    if (archive) {
        for (const QString& name : (*archive)->Names()) {
            const auto read = (*archive)->Read(name);
            fuzz::Require(read || !read.Reason().isEmpty(), "what cannot be read says why");
            fuzz::Require(!read || read->size() <= HelpArchive::kLargestFile,
                          "no file is larger than allowed");
        }
    }
    const auto file = HelpFile::Open(path);
    if (file) {
        fuzz::Require((*file)->Has((*file)->StartPage()), "the start page is a page of the file");
        for (const PageAddress& page : (*file)->Topics())
            fuzz::Require((*file)->Has(page.path), "a topic leads to a page of the file");
        PageSearch search;
        fuzz::Require(search.Find(**file, QStringLiteral("  ")).empty(), "no word finds no page");
        static_cast<void>(search.Find(**file, QStringLiteral("atome")));
    }
    return 0;
}
