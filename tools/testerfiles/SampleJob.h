#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// A file of the sample job.
struct SampleFile
{
    QString name;
    QByteArray bytes;
};

/// Seed of the files in the folder "samples".
constexpr unsigned sampleSeed = 12;

/// The tester's files of one job: a visit to a roof with three strings.
QVector<SampleFile> sampleJob(unsigned seed);

/// What a tester holds after a few tests of one string, written as the default locale has it.
QByteArray downloadedFile(unsigned seed);
