# Prints every field of an ISO 2709 file as MARC::Record reads it, one line a field; its warnings go to
# standard error, and any makes the exit status 1.
use strict;
use warnings;
use MARC::File::USMARC;

my $complaints = 0;
local $SIG{__WARN__} = sub { $complaints++; print STDERR @_ };
my $file = MARC::File::USMARC->in($ARGV[0]) or die "can't open $ARGV[0]\n";
binmode STDOUT, ':utf8';
my $utf8 = ($ARGV[1] // '') eq 'utf8';
binmode STDOUT, ':raw' unless $utf8;
while (my $record = $file->next) {
    for my $complaint ($record->warnings) { $complaints++; print STDERR "$complaint\n"; }
    print 'LDR|', $record->leader, "\n";
    for my $field ($record->fields) {
        if ($field->is_control_field) {
            print join('|', $field->tag, $field->data), "\n";
            next;
        }
        print join('|', $field->tag, $field->indicator(1) . $field->indicator(2),
            map { "\$$$_[0]$$_[1]" } $field->subfields), "\n";
    }
    print "\n";
}
exit($complaints ? 1 : 0);
