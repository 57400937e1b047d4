#include "platform/qt/PagePdf.h"

#include "platform/Platform.h"
#include "platform/Surface.h"
#include "support/SessionTest.h"

#include <QByteArray>

namespace pulselark {
namespace {

class PagePdfs : public SessionTest {
protected:
    // A page of everything that a page can hold, its texts in three weights and two scripts.
    static PaperPage TestPage(PaperSize size) {
        return {size, [](Surface& page) {
                    page.SetForeColour(0x646464);
                    for (const int weight : {400, 500, 700}) {
                        page.SetPageFont(page.Height() * 0.011, weight);
                        page.Print(50, page.Height() - weight, "Kohärenz 心拍");
                    }
                    page.SetFont("Arial", 14, true);
                    page.Print(50, 50, "panel");
                    page.GradientBox(100, 100, 200, 200, 0x58281D, 0x441B14);
                    page.Sector({{300, 300}, 40, 0, 2}, 0xC8EDC8);
                    page.FramedBox(300, 100, 400, 200, 4, 0xFFFFFF, {0xEBBBAF, 1.3});
                    page.Line(0, 0, page.Width(), page.Height(), 0);
                }};
    }
    std::string Pdf(PaperSize paper) {
        std::string bytes;
        EXPECT_EQ(PagePdf("Title", paper, TestPage(paper), bytes), 0);
        return bytes;
    }
};

// The content streams of a PDF, unpacked.
std::string Unpacked(const std::string& pdf) {
    std::string all;
    for (std::size_t at = pdf.find("stream\n"); at != std::string::npos; at = pdf.find("stream\n", at + 1)) {
        const std::size_t end = pdf.find("endstream", at);
        const QByteArray packed(pdf.data() + at + 7, static_cast<qsizetype>(end - at - 7));
        all += qUncompress(QByteArray(4, '\0') + packed).toStdString(); // its own length is only a hint
    }
    return all;
}

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST_F(PagePdfs, HoldLettersAndLinesOnASheetOfTheirSize) {
    const std::string a4 = Pdf(PaperA4);
    EXPECT_TRUE(a4.starts_with("%PDF-"));
    EXPECT_NE(a4.find("/MediaBox [0 0 595"), std::string::npos);
    EXPECT_EQ(Count(a4, "/Type /Page\n"), 1U);
    EXPECT_NE(Pdf(PaperLetter).find("/MediaBox [0 0 612"), std::string::npos);
    const std::size_t fonts = Count(a4, "/FontFile");
    EXPECT_GE(fonts, 3U); // each weight embedded, and each with its letters' names
    EXPECT_EQ(Count(a4, "/ToUnicode"), fonts);
    EXPECT_EQ(Count(a4, "/Subtype /Image"), 0U);
    const std::string drawing = Unpacked(a4);
    EXPECT_GE(Count(drawing, "Tj"), 4U) << drawing.size();
}

TEST_F(PagePdfs, FailWithTheirNumberAndKeepTheOldFile) {
    std::string bytes = "old";
    const PaperPage broken{PaperA4, [](Surface& /*page*/) { throw Failure{FailureOverflow}; }};
    EXPECT_EQ(PagePdf("Title", PaperA4, broken, bytes), 6);
    EXPECT_EQ(bytes, "old");
    Outside.Disk.Content["a.pdf"] = "old";
    Outside.Disk.DiskSize = 100;
    EXPECT_EQ(WritePagePdf("a.pdf", "Title", PaperA4, TestPage(PaperA4)), 61);
    EXPECT_EQ(Outside.Disk.Content["a.pdf"], "old");
}

} // namespace
} // namespace pulselark
