#pragma once

class QString;

/// How the program without windows ends.
enum BatchExit
{
    BatchDone = 0,
    BatchBadInput = 1,
    BatchUsage = 2
};

/// Bad input if the job was not done or anything was told that is no mere notice.
BatchExit batchOutcome(bool done);

/// One line on the standard error channel.
void tell(const QString &text);

/// Sends all messages of the program to the standard error channel and answers questions with No.
void tellMessages();
