# Prints every field of a file as MARC::Record reads it, one line a field; its warnings go to standard
# error, and any makes the exit status 1.
#
# usage: marc_record_dump.pl FILE FORM     FORM: utf8 or raw for ISO 2709, marcxml, jsonl
use strict;
use warnings;
use MARC::Record;

my $complaints = 0;
local $SIG{__WARN__} = sub { $complaints++; print STDERR @_ };

# What gives the next record of a file.
sub reader {
    my ($path, $form) = @_;
    if ($form eq 'jsonl') {
        require MARC::Record::MiJ;
        open my $lines, '<:raw', $path or die "can't open $path\n";
        return sub { my $line = <$lines>; defined $line ? MARC::Record::MiJ->new($line) : undef };
    }
    my $class = $form eq 'marcxml' ? 'MARC::File::XML' : 'MARC::File::USMARC';
    eval "require $class" or die $@;
    $class->import(BinaryEncoding => 'utf8', RecordFormat => 'MARC21') if $form eq 'marcxml';
    my $file = $class->in($path) or die "can't open $path\n";
    return sub { $file->next };
}

my ($path, $form) = ($ARGV[0], $ARGV[1] // 'raw');
my $next = reader($path, $form);
binmode STDOUT, $form eq 'raw' ? ':raw' : ':utf8';
while (my $record = $next->()) {
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
