#pragma once

#include <UBXMessageList.h>
#include <ubxExport.h>

/// Cuts the known, undamaged UBX frames out of received bytes and puts them into a list.
///
/// A frame is known when its class and id are in the catalogue. NMEA sentences, noise and unknown frames are passed
/// over. No partial frame is kept between calls: bytes of an unfinished frame have to be presented again with those
/// that follow. One thread at a time.
class UBXCONTROL_API UBXMessageBuilder
{
public:
    /// @param list  receives the messages; not owned, must outlive the builder.
    explicit UBXMessageBuilder(UBXMessageList* list);
    ~UBXMessageBuilder();

    /// Adds every good frame of the buffer to the list and counts what it saw.
    ///
    /// A frame is taken only when at least one more byte follows it. One with a wrong checksum is passed over whole, as
    /// far as its length field says. Of two 0xB5 in a row the second is never taken for a sync char.
    /// @return the offset behind the last complete frame when the scan ended at an unfinished frame or two bytes before
    ///         the end of the buffer; otherwise 0.
    unsigned long update(unsigned char* buffer, unsigned long length);

    unsigned int getGoodMessageCount() const;    ///< frames added to the list
    unsigned int getErroredMessageCount() const; ///< frames with a wrong checksum
    unsigned int
    getUnknownMessageCount() const; ///< sync chars before an unknown class/id, and frames of the last known one
    unsigned int getAckMessageCount() const; ///< ACK-ACK among the good frames
    unsigned int getNakMessageCount() const; ///< ACK-NAK among the good frames

    void resetMessageCounters();

private:
    friend class ubxIO;

    // As update(); resumeAt is where a later scan has to start again: everything before it is done with.
    UBXCONTROL_INTERNAL unsigned long scan(const unsigned char* buffer, unsigned long length, unsigned long& resumeAt);
    UBXCONTROL_INTERNAL void accept(const unsigned char* wholeFrame, unsigned long frameLength);

    UBXMessageList* list_;
    unsigned int goodCount_ = 0;
    unsigned int erroredCount_ = 0;
    unsigned int unknownCount_ = 0;
    unsigned int ackCount_ = 0;
    unsigned int nakCount_ = 0;
};
