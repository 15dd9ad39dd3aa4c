#pragma once

#include <set>
#include <string>

#include <UBXControlInterface.h>

/// A receiver that notes which of the 58 operations are called, by their place in the interface, and does nothing.
class RecordingControl final : public UBXControlInterface
{
public:
    std::set<int> called;

    int Init() override { return note(0); }
    int save() override { return note(1); }
    int load() override { return note(2); }
    int resetFactoryDefaults() override { return note(3); }
    int resetUbloxDefaults() override { return note(4); }
    int restart(bool) override { return note(5); }
    int setDefaultConfiguration() override { return note(6); }
    int setApplicationDefaults() override { return note(7); }
    int turnOff() override { return note(8); }
    int turnOn() override { return note(9); }
    int isOn(bool&) override { return note(10); }
    int getResetInfo() override { return note(11); }
    int getInfo(std::string&) override { return note(12); }
    int setAntennaPower(std::string) override { return note(13); }
    int setAntennaDelay(int) override { return note(14); }
    int getAntennaDelay(int&) override { return note(15); }
    int setAntennaType(std::string) override { return note(16); }
    int getAntennaType(std::string&) override { return note(17); }
    int setGnssSystem(unsigned short, bool) override { return note(18); }
    int setGnssSystem(unsigned short) override { return note(19); }
    int getGnssSystem(unsigned short&) override { return note(20); }
    int setJammingDetection(bool) override { return note(21); }
    int getJammingDetection(bool&) override { return note(22); }
    int getNavsolution(std::string, std::string&) override { return note(23); }
    int setSurveyMode(std::string) override { return note(24); }
    int getSurveyMode(std::string&) override { return note(25); }
    int setSurveyStatic(double, double, double, double) override { return note(26); }
    int setSurveyAuto(unsigned int, float) override { return note(27); }
    int setSurveyAuto() override { return note(28); }
    int setSurveyDynamic() override { return note(29); }
    int getSurveyInfo(unsigned char&, double&, double&, double&, double&, unsigned int&, float&) override
    {
        return note(30);
    }
    int getSatelliteInfo(std::string&) override { return note(31); }
    int getNofSatellitesInNavSol(unsigned char&) override { return note(32); }
    int setMinCNo(signed char) override { return note(33); }
    int getMinCNo(signed char&) override { return note(34); }
    int setElevationLimit(unsigned char) override { return note(35); }
    int getElevationLimit(unsigned char&) override { return note(36); }
    int setDynamicModel(unsigned char) override { return note(37); }
    int setDynamicModel(unsigned char, unsigned char) override { return note(38); }
    int getDynamicModel(unsigned char&, unsigned char&) override { return note(39); }
    int setFixMode(unsigned char) override { return note(40); }
    int setTimeReference(std::string) override { return note(41); }
    int getTimeReference(std::string&) override { return note(42); }
    int setRxMode(std::string) override { return note(43); }
    int getRxMode(std::string&) override { return note(44); }
    int setUtcStandardAuto() override { return note(45); }
    int setUtsStandardTime(signed char) override { return note(46); }
    int configureUbxPolling(unsigned char) override { return note(47); }
    int configureSBAS() override { return note(48); }
    int configureNmeaPolling(unsigned char) override { return note(49); }
    int configurNmeaPollingPartial(unsigned char) override { return note(50); }
    int configureProtocols() override { return note(51); }
    int configExtendedPowerManagment() override { return note(52); }
    int getUtcGrid(unsigned short) override { return note(53); }
    int configTimePulse(unsigned short, unsigned char, bool) override { return note(54); }
    std::string timeStamp() override
    {
        note(55);
        return "14:03:07_042: ";
    }
    int setZedf9tConfigurationInterfaceMode(bool) override { return note(56); }
    int programGroupDelayCal(int) override { return note(57); }

private:
    int note(int slot)
    {
        called.insert(slot);
        return 0;
    }
};
