#include "surface/analysis.h"

#include <algorithm>
#include <cmath>

namespace Surface {

namespace {

/// The value below which a part of all values lies; leaves the values partly sorted.
double quantile(std::vector<double>& values, double part) {
  const auto last = static_cast<double>(values.size() - 1);
  const auto place = values.begin() + static_cast<std::ptrdiff_t>(part * last);
  std::nth_element(values.begin(), place, values.end());
  return *place;
}

}  // namespace

CurvatureStatistics curvatureStatistics(const std::vector<double>& curvature) {
  std::vector<double> values;
  values.reserve(curvature.size());
  std::copy_if(curvature.begin(), curvature.end(), std::back_inserter(values),
               [](double value) { return std::isfinite(value); });
  CurvatureStatistics result;
  result.defined = values.size();
  result.undefined = curvature.size() - values.size();
  if (values.empty()) {
    return result;
  }
  for (const double value : values) {
    result.mean += value / static_cast<double>(values.size());
  }
  result.lowest = quantile(values, 0);
  result.low = quantile(values, 0.05);
  result.median = quantile(values, 0.5);
  result.high = quantile(values, 0.95);
  result.highest = quantile(values, 1);
  return result;
}

}  // namespace Surface
