#include "batch/AoiOptions.h"

#include "batch/OptionValues.h"

namespace {

using O = AoiOptions;
using Text = QLatin1StringView;
using namespace optionvalues;

constexpr OptionRow rows[] = {
    {Text("aois"), Text("FILE.aoi"), Text("areas of interest; repeatable"), &texts<&O::aoiFiles>, Reported::Never},
    {Text("generate-aois"), Text("KIND")},
    {Text("regions"), Text("NAME=VALUE")},
    {Text("aois-out"), Text("FILE")},
    {Text("aoi-images"), Text("DIR")},
    {Text("saliency"), Text("METHOD")},
    {Text("saliency-out"), Text("FILE.tiff")},
    {Text("saliency-parameters"), Text("A,B,C,D")},
};

} // namespace

OptionGroup aoiOptions()
{
    return {Text("Areas of interest"), rows};
}
