#!/usr/bin/perl
# Prints what MARC::Lint finds in a file of records, a line each, and how many records it read.
#
# usage: lint.pl FILE
use strict;
use warnings;
use MARC::Batch;
use MARC::Lint;

my $batch = MARC::Batch->new('USMARC', $ARGV[0]);
$batch->strict_off;
$batch->warnings_off;
my $lint  = MARC::Lint->new;
my $count = 0;
while (my $record = $batch->next) {
    ++$count;
    $lint->check_record($record);
    print "record $count: $_\n" for $lint->warnings;
}
print "$count records checked\n";
