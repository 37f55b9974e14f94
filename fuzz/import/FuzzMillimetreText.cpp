// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a recording in millimetres; the first four are the sizes of its picture.

#include "Check.h"
#include "import/ilmenau/MillimetreText.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    constexpr std::size_t sizes = 4;
    if (size < sizes)
        return 0;
    const QByteArrayView bytes(data + sizes, static_cast<qsizetype>(size - sizes));
    const MillimetreSamples read = readMillimetreText(bytes, {data[0] + 1, data[1] + 1, data[2] + 1, data[3] + 1});
    check(read.left.size() == read.right.size() && read.left.size() == read.mean.size());
    check(read.counts.samples.samples == read.left.size());
    check(read.counts.columns.size() == millimetreColumns().size() || read.left.isEmpty());
    double line = 0;
    for (qsizetype i = 0; i < read.left.size(); ++i) {
        check(read.left[i].time == read.right[i].time && read.left[i].time == read.mean[i].time);
        check(read.left[i].validFlag == read.right[i].validFlag && read.left[i].validFlag == read.mean[i].validFlag);
        check(read.left[i].width > line);
        line = read.left[i].width;
    }
    check(importDoubts(read.counts).isEmpty() || !read.counts.columns.isEmpty() || read.left.isEmpty());
    check(reportedCounts(read.counts)[QStringLiteral("samples")] == read.left.size());
    return 0;
}
