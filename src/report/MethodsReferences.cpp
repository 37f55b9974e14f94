// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/MethodsReferences.h"

namespace {

struct Reference {
    Source source;
    const char *cited;
    const char *listed; ///< "%1" is the version of Vistrum
};

/// By the alphabet, which is the order of the list.
constexpr Reference references[] = {
    {Source::Anderson2013, "Anderson et al., 2013",
     "Anderson, N. C., Bischof, W. F., Laidlaw, K. E. W., Risko, E. F., & Kingstone, A. (2013). Recurrence "
     "quantification "
     "analysis of eye movements. Behavior Research Methods, 45, 842-856."},
    {Source::Cliff1993, "Cliff, 1993",
     "Cliff, N. (1993). Dominance statistics: Ordinal analyses to answer ordinal questions. Psychological Bulletin, "
     "114(3), 494-509."},
    {Source::ComaniciuMeer2002, "Comaniciu & Meer, 2002",
     "Comaniciu, D., & Meer, P. (2002). Mean shift: A robust approach toward feature space analysis. IEEE Transactions "
     "on Pattern Analysis and Machine Intelligence, 24(5), 603-619."},
    {Source::Cristino2010, "Cristino et al., 2010",
     "Cristino, F., Mathôt, S., Theeuwes, J., & Gilchrist, I. D. (2010). ScanMatch: A novel method for comparing "
     "fixation sequences. Behavior Research Methods, 42, 692-700."},
    {Source::CrosslandRubin2002, "Crossland & Rubin, 2002",
     "Crossland, M. D., & Rubin, G. S. (2002). The use of an infrared eyetracker to measure fixation stability. "
     "Optometry and Vision Science, 79, 735-739."},
    {Source::Dempster1977, "Dempster et al., 1977",
     "Dempster, A. P., Laird, N. M., & Rubin, D. B. (1977). Maximum likelihood from incomplete data via the EM "
     "algorithm. Journal of the Royal Statistical Society B, 39(1), 1-38."},
    {Source::EfronTibshirani1993, "Efron & Tibshirani, 1993",
     "Efron, B., & Tibshirani, R. J. (1993). An introduction to the bootstrap. Chapman & Hall."},
    {Source::Holm1979, "Holm, 1979",
     "Holm, S. (1979). A simple sequentially rejective multiple test procedure. Scandinavian Journal of Statistics, 6, "
     "65-70."},
    {Source::Holmqvist2011, "Holmqvist et al., 2011",
     "Holmqvist, K., Nyström, M., Andersson, R., Dewhurst, R., Jarodzka, H., & van de Weijer, J. (2011). Eye tracking: "
     "A "
     "comprehensive guide to methods and measures. Oxford University Press."},
    {Source::Holmqvist2012, "Holmqvist et al., 2012",
     "Holmqvist, K., Nyström, M., & Mulvey, F. (2012). Eye tracker data quality: What it is and how to measure it. In "
     "Proceedings of the Symposium on Eye Tracking Research and Applications (pp. 45-52). ACM."},
    {Source::Jarodzka2010, "Jarodzka et al., 2010",
     "Jarodzka, H., Holmqvist, K., & Nyström, M. (2010). A vector-based, multidimensional scanpath similarity measure. "
     "In Proceedings of the Symposium on Eye Tracking Research and Applications (pp. 211-218). ACM."},
    {Source::Krejtz2015, "Krejtz et al., 2015",
     "Krejtz, K., Duchowski, A., Szmidt, T., Krejtz, I., González Perilli, F., Pires, A., Vilaro, A., & Villalobos, N. "
     "(2015). Gaze transition entropy. ACM Transactions on Applied Perception, 13(1), Article 4."},
    {Source::NeedlemanWunsch1970, "Needleman & Wunsch, 1970",
     "Needleman, S. B., & Wunsch, C. D. (1970). A general method applicable to the search for similarities in the "
     "amino "
     "acid sequence of two proteins. Journal of Molecular Biology, 48(3), 443-453."},
    {Source::Niehorster2020, "Niehorster et al., 2020",
     "Niehorster, D. C., Zemblys, R., Beelders, T., & Holmqvist, K. (2020). Characterizing gaze position signals and "
     "synthesizing noise during fixations in eye-tracking data. Behavior Research Methods, 52, 2515-2534."},
    {Source::PhipsonSmyth2010, "Phipson & Smyth, 2010",
     "Phipson, B., & Smyth, G. K. (2010). Permutation P-values should never be zero: Calculating exact P-values when "
     "permutations are randomly drawn. Statistical Applications in Genetics and Molecular Biology, 9(1), Article 39."},
    {Source::SakoeChiba1978, "Sakoe & Chiba, 1978",
     "Sakoe, H., & Chiba, S. (1978). Dynamic programming algorithm optimization for spoken word recognition. IEEE "
     "Transactions on Acoustics, Speech, and Signal Processing, 26(1), 43-49."},
    {Source::SalvucciGoldberg2000, "Salvucci & Goldberg, 2000",
     "Salvucci, D. D., & Goldberg, J. H. (2000). Identifying fixations and saccades in eye-tracking protocols. In "
     "Proceedings of the Symposium on Eye Tracking Research and Applications (pp. 71-78). ACM."},
    {Source::Vistrum, "The Vistrum developers, 2026",
     "The Vistrum developers (2026). Vistrum: analysis of gaze recordings (Version %1) [Computer software]."},
};

const Reference &referenceOf(Source source)
{
    return references[static_cast<size_t>(source)];
}

} // namespace

QString citation(Source source)
{
    return QString::fromUtf8(referenceOf(source).cited);
}

QString reference(Source source, const QString &release)
{
    const QString listed = QString::fromUtf8(referenceOf(source).listed);
    return source == Source::Vistrum ? listed.arg(release.section(u' ', 0, 0)) : listed;
}
