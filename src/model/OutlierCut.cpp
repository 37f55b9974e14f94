#include "model/OutlierCut.h"

#include "model/DataModel.h"

namespace {

constexpr QSizeF canvasSizePx(2560, 1600);
constexpr double marginFraction = 0.01;

class Limits {
public:
    Limits(double sizePx, double canvasPx)
    {
        const double size = sizePx < 0 || sizePx > canvasPx ? canvasPx : sizePx;
        m_lower = size * marginFraction;
        m_upper = size - m_lower;
    }
    bool excludes(double value) const { return value < m_lower || value >= m_upper; }

private:
    double m_lower = 0;
    double m_upper = 0;
};

} // namespace

void cutOutliers(DataModel &model, QSizeF pictureSizePx)
{
    const Limits x(pictureSizePx.width(), canvasSizePx.width());
    const Limits y(pictureSizePx.height(), canvasSizePx.height());
    const auto isOutlier = [&](const GazePoint &point) { return x.excludes(point.x) || y.excludes(point.y); };

    model.examinations() = model.allExaminations();
    for (Examination &examination : model.examinations()) {
        for (EyeData *eye : examination.streams()) {
            eye->gazePoints.removeIf(isOutlier);
            eye->scanpath.clear();
            eye->fixationClusters.clear();
        }
    }
}

void restoreOutliers(DataModel &model)
{
    model.examinations() = model.allExaminations();
}
