#pragma once

#include <string>

#include "link/ReceiverLink.h"
#include "protocol/PayloadView.h"

/// Reports decoded from polled messages; the same for every model.
namespace ubx::reports
{

// NavigationReport.cpp
int getNavsolution(ReceiverLink& link, const std::string& what, std::string& solution);
int getNofSatellitesInNavSol(ReceiverLink& link, unsigned char& count);

// SatelliteReport.cpp
int getSatelliteInfo(ReceiverLink& link, std::string& satellites);

// SurveyReport.cpp
int setSurveyMode(ReceiverLink& link, const std::string& mode);
int getSurveyInfo(ReceiverLink& link, unsigned char& mode, double& latitude, double& longitude, double& height,
                  double& accuracy, unsigned int& duration, float& accuracyLimit);

// VersionReport.cpp
int getInfo(ReceiverLink& link, std::string& info);

/// Where a text of the version record ends, besides the end of the payload.
enum class VersionText
{
    endsWithField,   // at its zero byte or the end of its field
    runsOnUnlessZero // at the next zero byte, in a later field if need be
};

/// The version record on one line, its texts joined by ": ".
std::string versionLine(PayloadView monVerRecord, VersionText end);

/// Writes "Parameter invalid: " and the text to the log.
int refuseWord(ReceiverLink& link, const std::string& word);

} // namespace ubx::reports
