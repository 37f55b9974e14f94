// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterSettingsModel.h"
#include "commands/ParameterCommand.h"

using CommandChangeClusterControlCalculationType = ParameterCommand<rows::clusterCalculationType>;
using CommandChangeClusterControlStandardMinimumFixation = ParameterCommand<rows::clusterStandardMinimumFixations>;
using CommandChangeClusterControlStandardOverlap = ParameterCommand<rows::clusterStandardOverlapAllowed>;
using CommandChangeClusterControStandardlMaximumRadius = ParameterCommand<rows::clusterStandardMaximumRadius>; // sic
using CommandChangeClusterControlMeanShiftSearchRadius = ParameterCommand<rows::clusterMeanShiftRadius>;
using CommandChangeClusterControlMeanShiftGradientDescentRate = ParameterCommand<rows::clusterMeanShiftGradient>;
using CommandChangeClusterControlMeanShiftMaximumIterations = ParameterCommand<rows::clusterMeanShiftIterations>;
using CommandChangeClusterControlMeanShiftMinimumFixations = ParameterCommand<rows::clusterMeanShiftMinimumFixations>;
